#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "zelTestData.h"

#include "zelFakePlatform.h"

#include <QDir>
#include <QFile>
#include <QPluginLoader>
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

// The class and name of a widget-box entry's <widget>.
std::pair<QString, QString> entryWidget(const QString &xml)
{
    QXmlStreamReader r(xml);
    while (r.readNextStartElement() && r.name() != u"widget")
        ;
    return {r.attributes().value(QLatin1String("class")).toString(),
            r.attributes().value(QLatin1String("name")).toString()};
}

} // namespace

class tst_designer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QPluginLoader loader(QStringLiteral(ZEL_DESIGNER_PLUGIN_FILE));
        QVERIFY2(loader.load(), qPrintable(loader.errorString()));
        auto *collection =
            qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
        QVERIFY(collection);
        for (QDesignerCustomWidgetInterface *entry : collection->customWidgets()) {
            QVERIFY2(!m_entries.contains(entry->name()), qPrintable(entry->name()));
            m_entries.insert(entry->name(), entry);
        }
        QVERIFY(!m_entries.isEmpty());

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

    void entryMatchesItsControl_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : m_entries.keys())
            QTest::newRow(qPrintable(name)) << name;
    }

    void entryMatchesItsControl()
    {
        QFETCH(QString, name);
        zelTestScope scope; // 15 twips per pixel
        QDesignerCustomWidgetInterface *entry = m_entries.value(name);

        QCOMPARE(entry->group(), QStringLiteral("zelCtrl"));
        QVERIFY(!entry->toolTip().isEmpty());

        // The include as a host writes it, resolved like the installed headers.
        const QString include = entry->includeFile();
        QVERIFY2(QDir::isRelativePath(include) && !include.startsWith(u'<'), qPrintable(include));
        QFile header(QStringLiteral(ZEL_HEADER_DIR) + u'/' + include);
        QVERIFY2(header.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(include));
        const QRegularExpression declaration(
            QStringLiteral("\\bclass\\s+(?:ZELCTRL_EXPORT\\s+)?%1\\s*[:{]").arg(name));
        QVERIFY2(declaration.match(QString::fromUtf8(header.readAll())).hasMatch(),
                 qPrintable(include + QStringLiteral(" does not declare ") + name));

        const auto [domClass, domName] = entryWidget(entry->domXml());
        QCOMPARE(domClass, name);
        QVERIFY(!domName.isEmpty());

        std::unique_ptr<QWidget> control(entry->createWidget(nullptr));
        QVERIFY(control);
        QCOMPARE(QString::fromLatin1(control->metaObject()->className()), name);
        // Outside a form that Designer edits (QUiLoader in an application,
        // Designer's preview) the control works as at run time.
        QVERIFY(zel::UserMode(control.get()));
    }

    // Each control a host can create by program identifier has one entry,
    // and each entry is such a control.
    void entriesAreTheControls()
    {
        zelTestScope scope;
        QStringList controls;
        for (const QString &progId : zel::RegisteredProgIds()) {
            const bool ours = progId.startsWith(QLatin1String("zelCtrl."));
            std::unique_ptr<QObject> object(ours ? zel::CreateObject(progId) : nullptr);
            if (qobject_cast<QWidget *>(object.get()))
                controls << progId.mid(8);
        }
        controls.sort();
        QCOMPARE(m_entries.keys(), controls);
    }

#ifdef ZEL_HAVE_FORM_EDITOR
    void propertySetInDesignerReachesTheRunningForm_data()
    {
        zelColumns<QString, QString, QVariant>({"name", "property", "value"});

        // One row per kind of value Designer edits (whole number, Boolean,
        // decimal, text, unsigned colour) and per control.
        auto row = [](const char *control, const char *property, const QVariant &value) {
            QTest::addRow("%s %s", control, property) << control << property << value;
        };
        row("zelPrpButtons", "ButtonWidth", 1500);
        row("zelInputBox", "ValueMax", 99.5);
        row("zelInputBox", "Prefix", QStringLiteral("Width"));
        row("zelDateTime", "TimeInput", true);
        row("zelColorPicker", "BackColor", 0x00FF8000u);
        row("zelStdButtons", "OKasClose", true);
        row("zelGridList", "CheckBoxes", true);
        row("zelCombo", "Sorted", true);
        row("zelComboTree", "HasLines", false);
        row("zelTreeList", "HeaderVisible", false);
        row("zelRangeEditor", "SrcFormat", QStringLiteral("#,##0.0"));
        row("zelValueEditor", "ShowLabel", true);
    }

    void propertySetInDesignerReachesTheRunningForm()
    {
        const auto [name, property, value] =
            zelFetch<QString, QString, QVariant>({"name", "property", "value"});
        zelTestScope scope;

        // In Designer: the property editor writes through the sheet.
        const auto form = newForm(name);
        auto *designed = form->mainContainer()->findChild<QWidget *>(QStringLiteral("control"));
        QVERIFY(designed);
        QCOMPARE(QString::fromLatin1(designed->metaObject()->className()), name);
        QVERIFY(!zel::UserMode(designed));
        auto *sheet =
            qt_extension<QDesignerPropertySheetExtension *>(m_core->extensionManager(), designed);
        // The design-mode mark is not offered for editing, where it could be
        // saved with the form and carried into the running application.
        QVERIFY(!sheet->isVisible(sheet->indexOf(kUserModeMark)));
        const int index = sheet->indexOf(property);
        QVERIFY(index >= 0 && sheet->isVisible(index));
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

private:
    QMap<QString, QDesignerCustomWidgetInterface *> m_entries; // sorted by name

#ifdef ZEL_HAVE_FORM_EDITOR
    std::unique_ptr<QDesignerFormWindowInterface> newForm(const QString &className)
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

    QDesignerFormEditorInterface *m_core = nullptr;
    std::unique_ptr<QDesignerPropertyEditorInterface> m_propertyEditor;
#endif
};

QTEST_MAIN(tst_designer)
#include "tst_designer.moc"
