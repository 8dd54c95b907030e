#include "fields/zelColorPicker.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include "zelFakePlatform.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QPluginLoader>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#ifdef ZEL_HAVE_FORM_EDITOR
#include <QBuffer>
#include <QUiLoader>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>
#endif

#include <memory>

namespace {

const QString kUserModeMark = QStringLiteral("zelUserMode");

// The <widget> of a widget-box entry and the size of its geometry.
struct EntryWidget
{
    QString ClassName;
    QString Name;
    QSize Size;
    QString Error;
};

EntryWidget readEntryWidget(const QString &xml)
{
    EntryWidget w;
    QXmlStreamReader r(xml);
    bool inGeometry = false;
    while (!r.atEnd()) {
        r.readNext();
        if (r.isStartElement()) {
            if (r.name() == u"widget" && w.ClassName.isEmpty()) {
                w.ClassName = r.attributes().value(QStringLiteral("class")).toString();
                w.Name = r.attributes().value(QStringLiteral("name")).toString();
            } else if (r.name() == u"property") {
                inGeometry = r.attributes().value(QStringLiteral("name")) == u"geometry";
            } else if (inGeometry && r.name() == u"width") {
                w.Size.setWidth(r.readElementText().toInt());
            } else if (inGeometry && r.name() == u"height") {
                w.Size.setHeight(r.readElementText().toInt());
            }
        } else if (r.isEndElement() && r.name() == u"property") {
            inGeometry = false;
        }
    }
    if (r.hasError())
        w.Error = r.errorString();
    return w;
}

// The length a control keeps in one direction whatever it is given: a fixed
// length, or its size hint where its size policy is Fixed; -1 when it takes
// any length.
int keptLength(int minimum, int maximum, QSizePolicy::Policy policy, int hint)
{
    if (minimum == maximum)
        return minimum;
    return policy == QSizePolicy::Fixed ? hint : -1;
}

} // namespace

class tst_designer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void entryMatchesItsControl_data();
    void entryMatchesItsControl();
    void everyControlHasAnEntry();
    void failedCreationIsLoggedAndAnswersNothing_data();
    void failedCreationIsLoggedAndAnswersNothing();

#ifdef ZEL_HAVE_FORM_EDITOR
    void controlOnADesignerFormIsInDesignMode_data();
    void controlOnADesignerFormIsInDesignMode();
    void propertySetInDesignerReachesTheRunningForm_data();
    void propertySetInDesignerReachesTheRunningForm();
#endif

private:
    void addEntryRows();

    QHash<QString, QDesignerCustomWidgetInterface *> m_entries;
    QStringList m_names;

#ifdef ZEL_HAVE_FORM_EDITOR
    std::unique_ptr<QDesignerFormWindowInterface> newForm(const QString &className);

    QDesignerFormEditorInterface *m_core = nullptr;
    std::unique_ptr<QDesignerPropertyEditorInterface> m_propertyEditor;
#endif
};

void tst_designer::initTestCase()
{
    QPluginLoader loader(QStringLiteral(ZEL_DESIGNER_PLUGIN_FILE));
    QVERIFY2(loader.load(), qPrintable(loader.errorString()));
    auto *collection = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    QVERIFY(collection);
    for (QDesignerCustomWidgetInterface *entry : collection->customWidgets()) {
        QVERIFY2(!m_entries.contains(entry->name()), qPrintable(entry->name()));
        m_entries.insert(entry->name(), entry);
        m_names.append(entry->name());
    }
    QVERIFY(!m_names.isEmpty());

#ifdef ZEL_HAVE_FORM_EDITOR
    // Designer's own start-up: it finds the plugin on QT_PLUGIN_PATH and
    // initialises every entry with its core.
    QDesignerComponents::initializeResources();
    m_core = QDesignerComponents::createFormEditor(this);
    QDesignerComponents::initializePlugins(m_core);
    m_propertyEditor.reset(QDesignerComponents::createPropertyEditor(m_core, nullptr));
    m_core->setPropertyEditor(m_propertyEditor.get());
    new QDesignerIntegration(m_core, m_core);
    for (QDesignerCustomWidgetInterface *entry : std::as_const(m_entries))
        QVERIFY2(entry->isInitialized(), qPrintable(entry->name()));
#endif
}

void tst_designer::addEntryRows()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : std::as_const(m_names))
        QTest::newRow(qPrintable(name)) << name;
}

void tst_designer::entryMatchesItsControl_data()
{
    addEntryRows();
}

void tst_designer::entryMatchesItsControl()
{
    QFETCH(QString, name);
    zelTestScope scope; // 15 twips per pixel
    QDesignerCustomWidgetInterface *entry = m_entries.value(name);

    QVERIFY2(zel::RegisteredProgIds().contains(QStringLiteral("zelCtrl.") + name),
             qPrintable(name + QStringLiteral(" is not a registered program identifier")));
    QCOMPARE(entry->group(), QStringLiteral("zelCtrl"));
    QVERIFY(!entry->toolTip().isEmpty());

    // The include as a host writes it, resolved like the installed headers.
    const QString include = entry->includeFile();
    QVERIFY2(QDir::isRelativePath(include) && !include.startsWith(u'<'), qPrintable(include));
    QFile header(QStringLiteral(ZEL_HEADER_DIR) + u'/' + include);
    QVERIFY2(header.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(include));
    const QRegularExpression declaration(QStringLiteral("\\bclass\\s+%1\\s*[:{]").arg(name));
    QVERIFY2(declaration.match(QString::fromUtf8(header.readAll())).hasMatch(),
             qPrintable(include + QStringLiteral(" does not declare ") + name));

    const EntryWidget dom = readEntryWidget(entry->domXml());
    QVERIFY2(dom.Error.isEmpty(), qPrintable(dom.Error));
    QCOMPARE(dom.ClassName, name);
    QVERIFY(!dom.Name.isEmpty());
    QVERIFY(dom.Size.width() > 0 && dom.Size.height() > 0);

    // A newly placed control starts at the size it keeps anyway, so that
    // Designer's handles sit on its edges.
    std::unique_ptr<QWidget> control(entry->createWidget(nullptr));
    QVERIFY(control);
    QCOMPARE(QString::fromLatin1(control->metaObject()->className()), name);
    // Outside a form that Designer edits (QUiLoader in an application,
    // Designer's preview) the control works as at run time.
    QVERIFY(zel::UserMode(control.get()));
    const int width =
        keptLength(control->minimumWidth(), control->maximumWidth(),
                   control->sizePolicy().horizontalPolicy(), control->sizeHint().width());
    const int height =
        keptLength(control->minimumHeight(), control->maximumHeight(),
                   control->sizePolicy().verticalPolicy(), control->sizeHint().height());
    if (width >= 0)
        QCOMPARE(dom.Size.width(), width);
    if (height >= 0)
        QCOMPARE(dom.Size.height(), height);
}

void tst_designer::everyControlHasAnEntry()
{
    zelTestScope scope;
    const QString prefix = QStringLiteral("zelCtrl.");
    for (const QString &progId : zel::RegisteredProgIds()) {
        if (!progId.startsWith(prefix))
            continue;
        std::unique_ptr<QObject> object(zel::CreateObject(progId));
        if (!qobject_cast<QWidget *>(object.get()))
            continue; // plain objects are not placed on forms
        QVERIFY2(m_entries.contains(progId.mid(prefix.size())),
                 qPrintable(progId + QStringLiteral(" is a control without a widget-box entry")));
    }
}

void tst_designer::failedCreationIsLoggedAndAnswersNothing_data()
{
    QTest::addColumn<bool>("registered");
    QTest::newRow("identifier not registered") << false;
    QTest::newRow("identifier answers a plain object") << true;
}

void tst_designer::failedCreationIsLoggedAndAnswersNothing()
{
    QFETCH(bool, registered);
    zelTestScope scope;
    const QString progId = QStringLiteral("zelCtrl.zelColorPicker");
    QVERIFY(m_entries.contains(QStringLiteral("zelColorPicker")));

    // Whatever happens below, the real class is registered again.
    struct Restore
    {
        QString ProgId;
        ~Restore() { zel::ProgIdRegistrar<zelColorPicker> again(ProgId); }
    } restore{progId};

    QPointer<QObject> plain;
    if (registered)
        zel::RegisterProgId(progId, [&plain](QObject *) { return plain = new QObject; });
    else
        zel::UnregisterProgId(progId);

    QWidget *widget = m_entries.value(QStringLiteral("zelColorPicker"))->createWidget(nullptr);
    QVERIFY(!widget);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelDesignerWidget.createWidget")), 1);
    QVERIFY(!plain); // not leaked
}

#ifdef ZEL_HAVE_FORM_EDITOR

std::unique_ptr<QDesignerFormWindowInterface> tst_designer::newForm(const QString &className)
{
    std::unique_ptr<QDesignerFormWindowInterface> form(
        m_core->formWindowManager()->createFormWindow());
    form->setContents(QStringLiteral("<ui version=\"4.0\"><class>Form</class>"
                                     "<widget class=\"QWidget\" name=\"Form\">"
                                     "<widget class=\"%1\" name=\"control\"/>"
                                     "</widget></ui>")
                          .arg(className));
    return form;
}

void tst_designer::controlOnADesignerFormIsInDesignMode_data()
{
    addEntryRows();
}

void tst_designer::controlOnADesignerFormIsInDesignMode()
{
    QFETCH(QString, name);
    zelTestScope scope;

    // Loaded with a form...
    const auto form = newForm(name);
    auto *loaded = form->mainContainer()->findChild<QWidget *>(QStringLiteral("control"));
    QVERIFY(loaded);
    QCOMPARE(QString::fromLatin1(loaded->metaObject()->className()), name);
    QVERIFY(!zel::UserMode(loaded));

    // ...and the mark is not offered for editing, where it could be saved
    // with the form and carried into the running application.
    auto *sheet =
        qt_extension<QDesignerPropertySheetExtension *>(m_core->extensionManager(), loaded);
    QVERIFY(sheet);
    const int mark = sheet->indexOf(kUserModeMark);
    QVERIFY(mark >= 0);
    QVERIFY(!sheet->isVisible(mark));
}

void tst_designer::propertySetInDesignerReachesTheRunningForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");

    // One row per kind of value Designer edits: whole number, Boolean,
    // decimal, text, unsigned colour.
    QTest::newRow("input box MaxLength") << "zelInputBox"
                                         << "MaxLength" << QVariant(20);
    QTest::newRow("input box LimitValue") << "zelInputBox"
                                          << "LimitValue" << QVariant(true);
    QTest::newRow("input box ValueMax") << "zelInputBox"
                                        << "ValueMax" << QVariant(99.5);
    QTest::newRow("input box Prefix") << "zelInputBox"
                                      << "Prefix" << QVariant(QStringLiteral("Width"));
    QTest::newRow("date field TimeInput") << "zelDateTime"
                                          << "TimeInput" << QVariant(true);
    QTest::newRow("colour picker BackColor") << "zelColorPicker"
                                             << "BackColor" << QVariant(0x00FF8000u);
    QTest::newRow("dialog buttons ButtonsVisible") << "zelStdButtons"
                                                   << "ButtonsVisible" << QVariant(12);
    QTest::newRow("list buttons ButtonWidth") << "zelPrpButtons"
                                              << "ButtonWidth" << QVariant(1500);
}

void tst_designer::propertySetInDesignerReachesTheRunningForm()
{
    QFETCH(QString, name);
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    zelTestScope scope;

    // In Designer: the property editor writes through the sheet.
    const auto form = newForm(name);
    auto *designed = form->mainContainer()->findChild<QWidget *>(QStringLiteral("control"));
    QVERIFY(designed);
    auto *sheet =
        qt_extension<QDesignerPropertySheetExtension *>(m_core->extensionManager(), designed);
    const int index = sheet->indexOf(property);
    QVERIFY(index >= 0);
    QVERIFY(sheet->isVisible(index));
    sheet->setProperty(index, value);
    sheet->setChanged(index, true);
    QCOMPARE(designed->property(qPrintable(property)).toString(), value.toString());
    const QString ui = form->contents();
    QVERIFY(!ui.contains(kUserModeMark));

    // At run time: the saved form built by QUiLoader.
    QUiLoader loader;
    QBuffer buffer;
    buffer.setData(ui.toUtf8());
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    std::unique_ptr<QWidget> built(loader.load(&buffer));
    QVERIFY2(built, qPrintable(loader.errorString()));
    auto *running = built->findChild<QWidget *>(QStringLiteral("control"));
    QVERIFY(running);
    QCOMPARE(QString::fromLatin1(running->metaObject()->className()), name);
    QVERIFY(zel::UserMode(running));
    QCOMPARE(running->property(qPrintable(property)).toString(), value.toString());
    QCOMPARE(zelLoggedErrors(), 0);
}

#endif

QTEST_MAIN(tst_designer)
#include "tst_designer.moc"
