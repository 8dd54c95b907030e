#include "zelDesignerPlugin.h"
#include "zelDesignerTaskMenu.h"

#include "core/zelError.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "platform/zelPropertyBag.h"

#include <QIcon>
#include <QWidget>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <algorithm>
#include <iterator>

namespace {

// The widget box, one line per control. A newly placed control takes the
// size its own layout gives it at the defaults, so Designer's selection
// handles sit on the control's edges from the start.
const zelDesignerEntry kEntries[] = {
    {"zelInputBox", "fields/zelInputBox.h",
     "Labelled field for text or numbers, with decimals, a value range and refused characters",
     3000, 315},
    {"zelDateTime", "fields/zelDateTime.h",
     "Labelled field for a date with a drop-down calendar, or for a time of day", 3000, 315},
    {"zelColorPicker", "fields/zelColorPicker.h", "Colour swatch; a click opens the colour dialog",
     495, 315},
    {"zelStdButtons", "buttons/zelStdButtons.h",
     "Dialog buttons OK, Cancel, Apply, Help and four option buttons", 4680, 315},
    {"zelPrpButtons", "buttons/zelPrpButtons.h",
     "List buttons New, Remove, Properties, Help and four option buttons", 4680, 315},
    {"zelCombo", "lists/zelCombo.h",
     "Labelled multi-column drop-down list of keyed records, chosen by key or by the user", 3000,
     315},
    {"zelComboTree", "lists/zelComboTree.h",
     "Labelled drop-down list that shows its keyed records as a tree with pictures", 3000, 315},
#ifdef ZEL_HAVE_GRID_LIST
    {"zelGridList", "grid/zelGridList.h",
     "Grid of rows and typed columns with its own Add, Remove and Properties buttons", 4800, 2400},
#endif
    {"zelTreeList", "lists/zelTreeList.h",
     "Multi-column tree of keyed records with pictures, expanded by key or by depth", 3600, 2400},
    {"zelRangeEditor", "legend/zelRangeEditor.h",
     "Legend of contiguous numeric ranges with values, colours and labels", 4800, 3000},
    {"zelValueEditor", "legend/zelValueEditor.h",
     "Legend of unique source values with values, colours and labels", 4800, 3000},
    {"zelToolbarCtrl", "toolbars/zelToolbarCtrl.h",
     "Toolbars and menus of the main window it is placed on; shows nothing at run time", 1200, 480},
    {"zelWizard", "wizard/zelWizard.h",
     "Wizard that shows one pane at a time with Back, Next, Finish and Cancel; drop panes into it",
     9000, 6000},
    {"zelPane", "wizard/zelPane.h",
     "One step of a wizard: draw its widgets on it and chain it to the next pane by name", 6000,
     4500},
    {"zelFileExp", "files/zelFileExp.h",
     "Folder tree and filtered file list with a splitter; a file-choosing step of a wizard", 7500,
     4500},
};

// Controls that take other widgets: panes go into a wizard, a step's widgets onto a pane.
const char *const kContainers[] = {"zelWizard", "zelPane"};

const QString kGroup = QStringLiteral("zelCtrl");
// Where the platform keeps the UserMode mark (a dynamic property).
const QString kUserModeMark = QStringLiteral("zelUserMode");

} // namespace

zelDesignerWidget::zelDesignerWidget(const zelDesignerEntry &entry,
                                     zelDesignerCollection *collection)
    : QObject(collection), m_entry(entry), m_collection(collection)
{}

QString zelDesignerWidget::name() const
{
    return QString::fromLatin1(m_entry.Name);
}

QString zelDesignerWidget::group() const
{
    return kGroup;
}

QString zelDesignerWidget::toolTip() const
{
    return QString::fromUtf8(m_entry.ToolTip);
}

QString zelDesignerWidget::whatsThis() const
{
    return toolTip();
}

QString zelDesignerWidget::includeFile() const
{
    return QString::fromLatin1(m_entry.Include);
}

QIcon zelDesignerWidget::icon() const
{
    return {};
}

bool zelDesignerWidget::isContainer() const
{
    return std::any_of(std::begin(kContainers), std::end(kContainers),
                       [this](const char *c) { return qstrcmp(c, m_entry.Name) == 0; });
}

QWidget *zelDesignerWidget::createWidget(QWidget *parent)
{
    QWidget *widget = nullptr;
    zel::Trail t(this, "createWidget");
    t.Run([&] {
        const QString progId = QStringLiteral("zelCtrl.") + name();
        t.Step = QStringLiteral("Creating ") + progId;
        QObject *created = zel::CreateObject(progId, parent);
        widget = qobject_cast<QWidget *>(created);
        if (!widget) {
            delete created;
            throw zelError(zelError::InvalidProcedureCall, progId,
                           QStringLiteral("No control is registered as ") + progId);
        }
        // Only a form that Designer edits holds controls in design mode. The
        // same factory serves QUiLoader in applications and Designer's
        // preview, and those controls must work as at run time.
        if (QDesignerFormWindowInterface::findFormWindow(parent))
            zel::SetUserMode(widget, false);
        t.Step = QStringLiteral("InitProperties");
        if (auto *persistable = dynamic_cast<zelPersistable *>(widget))
            persistable->InitProperties();
    });
    // Designer reports a null widget by its class name and carries on.
    return widget;
}

bool zelDesignerWidget::isInitialized() const
{
    return m_initialized;
}

void zelDesignerWidget::initialize(QDesignerFormEditorInterface *core)
{
    if (m_initialized)
        return;
    m_initialized = true;
    if (core)
        m_collection->Watch(core);
}

QString zelDesignerWidget::domXml() const
{
    const int width = zel::TwipsToPixels(m_entry.WidthTwips);
    const int height = zel::TwipsToPixels(m_entry.HeightTwips);
    return QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"%1\" name=\"%2\">\n"
                          "  <property name=\"geometry\">\n"
                          "   <rect><x>0</x><y>0</y><width>%3</width><height>%4</height></rect>\n"
                          "  </property>\n"
                          " </widget>\n"
                          "</ui>\n")
        .arg(name(), name())
        .arg(width)
        .arg(height);
}

zelDesignerCollection::zelDesignerCollection(QObject *parent) : QObject(parent)
{
    for (const zelDesignerEntry &entry : kEntries) {
        m_widgets.append(new zelDesignerWidget(entry, this));
        m_classes.append(QString::fromLatin1(entry.Name));
    }
}

QList<QDesignerCustomWidgetInterface *> zelDesignerCollection::customWidgets() const
{
    return m_widgets;
}

void zelDesignerCollection::Watch(QDesignerFormEditorInterface *core)
{
    m_watched.removeAll(nullptr);
    if (m_watched.contains(core))
        return;
    m_watched.append(core);
    // "Edit Pane..." and "Edit Wizard..." in the task menu of those controls.
    if (QExtensionManager *manager = core->extensionManager())
        manager->registerExtensions(new zelPageTaskMenuFactory(manager),
                                    Q_TYPEID(QDesignerTaskMenuExtension));
    QDesignerFormWindowManagerInterface *forms = core->formWindowManager();
    if (!forms)
        return;
    for (int i = 0; i < forms->formWindowCount(); ++i)
        watchForm(core, forms->formWindow(i));
    connect(forms, &QDesignerFormWindowManagerInterface::formWindowAdded, this,
            [this, core](QDesignerFormWindowInterface *form) { watchForm(core, form); });
}

void zelDesignerCollection::watchForm(QDesignerFormEditorInterface *core,
                                      QDesignerFormWindowInterface *form)
{
    connect(form, &QDesignerFormWindowInterface::widgetManaged, this,
            [this, core](QWidget *widget) { hideUserModeMark(core, widget); });
}

void zelDesignerCollection::hideUserModeMark(QDesignerFormEditorInterface *core,
                                             QWidget *widget) const
{
    zel::Trail t(this, "hideUserModeMark");
    t.Run([&] {
        if (!widget || !m_classes.contains(QString::fromLatin1(widget->metaObject()->className())))
            return;
        auto *sheet =
            qt_extension<QDesignerPropertySheetExtension *>(core->extensionManager(), widget);
        const int index = sheet ? sheet->indexOf(kUserModeMark) : -1;
        // Shown, the mark could be edited and saved with the form, and would
        // then put its control into design mode at run time.
        if (index >= 0)
            sheet->setVisible(index, false);
    });
}
