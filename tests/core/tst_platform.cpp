// The platform door: object factory and plugins, late binding, settings
// files, property bags, colours.

#include "core/mLog.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

// An object with the shapes a late-bound caller meets.
class Target : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Count READ Count WRITE SetCount)
public:
    int Count() const { return m_count; }
    void SetCount(int v) { m_count = v; }
    Q_INVOKABLE int Add(int a, int b = 10) { return a + b; }
    Q_INVOKABLE void Twice(qint16 &value) { value = qint16(value * 2); }
    Q_INVOKABLE QString Echo(const QVariant &v) { return v.toString(); }

private:
    int m_count = 0;
};

class tst_Platform : public QObject
{
    Q_OBJECT

private slots:
    void factoryCreatesRegisteredClassesIgnoringCase()
    {
        std::unique_ptr<QObject> box(zel::CreateObject("ZELCTRL.zelinputbox"));
        QVERIFY(box);
        QCOMPARE(box->metaObject()->className(), "zelInputBox");
        QVERIFY(zel::RegisteredProgIds().contains("zelCtrl.zelInputBox"));
        // Unknown, empty or failing identifiers answer nothing.
        zel::RegisterProgId("zelTest.Throws",
                            [](QObject *) -> QObject * { throw std::runtime_error("no"); });
        for (const QString &id : QStringList{"zelCtrl.NoSuchThing", QString(), "zelTest.Throws"})
            QCOMPARE(zel::CreateObject(id), nullptr);
        zel::UnregisterProgId("zelTest.Throws");
    }

    void loggerPluginWritesOneLinePerMessage()
    {
        QTemporaryDir dir;
        const QString log = dir.filePath("zel.log");
        qputenv("ZEL_LOG_FILE", log.toLocal8Bit());
        qputenv("ZEL_PLUGIN_PATH", QByteArray(ZEL_TEST_PLUGIN_DIR));

        std::unique_ptr<QObject> logger(zel::CreateObject("zelLog.zelHandler"));
        QVERIFY2(logger, "the logger plugin was not found on the plugin path");

        // The log as hosts run it: the default logger identifier, no fake.
        mLog::Reset();
        mLog::ErrorLog("zelInputBox.Value Let", zelError(13, "inner"), "Reading", false);
        mLog::TraceLog("zelGridList.SizeColZero", "lSizeCol = ", "1");
        mLog::Reset();

        QFile f(log);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromUtf8(f.readAll()).split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].split(u'\t').mid(1),
                 (QStringList{"zelCtrl", mLog::VersionString(), "zelInputBox.Value Let::inner",
                              "13", "Type mismatch", "Reading"}));
        QVERIFY(lines[1].contains("lSizeCol = "));
        qunsetenv("ZEL_LOG_FILE");
        qunsetenv("ZEL_PLUGIN_PATH");
    }

    void lateBoundCalls()
    {
        zelTestScope scope;
        Target t;
        bool ok = false;
        QCOMPARE(zel::CallByName(&t, "add", {2, 3}, &ok).toInt(), 5);
        QVERIFY(ok);
        QCOMPARE(zel::CallByName(&t, "Add", {2}, &ok).toInt(), 12); // default argument
        QVariantList args{QVariant(21)};
        zel::CallByName(&t, "Twice", args, &ok);
        QVERIFY(ok);
        QCOMPARE(args[0].toInt(), 42); // by reference
        QCOMPARE(zel::CallByName(&t, "Echo", {"x"}).toString(), "x");
        QVERIFY(zel::SetProperty(&t, "count", 7));
        QCOMPARE(zel::GetProperty(&t, "COUNT").toInt(), 7);
        QVERIFY(!zel::GetProperty(&t, "Missing").isValid());
        QCOMPARE(zelCaptureLogger::errors.size(), 0);
        // What a script gets wrong is logged under the member it named, and
        // changes nothing.
        zel::CallByName(&t, "NoSuchMethod", {}, &ok);
        QVERIFY(!ok);
        zel::CallByName(&t, "Add", {"not a number", 1}, &ok);
        QVERIFY(!ok);
        zel::CallByName(&t, "Add", {1, 2, 3});
        QVERIFY(!zel::SetProperty(&t, "Missing", 1));
        QVERIFY(!zel::SetProperty(&t, "Count", QVariantMap{{"a", 1}}));
        QCOMPARE(t.Count(), 7);
        QStringList logged;
        for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
            logged << e.value(2).toString() + ' ' + e.value(3).toString();
        QCOMPARE(logged, (QStringList{"Target.NoSuchMethod 438", "Target.Add 13", "Target.Add 450",
                                      "Target.Missing Let 438", "Target.Count Let 13"}));
    }

    void settingsFilesAreReadWithFallback()
    {
        QTemporaryDir dir;
        const QString user = dir.filePath("user.ini");
        const QString machine = dir.filePath("machine.ini");
        {
            QSettings u(user, QSettings::IniFormat);
            u.setValue("Common/ConDebug", 1);
            QSettings m(machine, QSettings::IniFormat);
            m.setValue("Common/ConDebug", 0);
            m.setValue("Common/ConTrack", 3);
            m.setValue("Common/ErrorLogger", "my.Logger");
        }
        qputenv("ZEL_USER_SETTINGS", user.toLocal8Bit());
        qputenv("ZEL_MACHINE_SETTINGS", machine.toLocal8Bit());
        mLog::Reset();
        const QVariant logger =
            zel::platform().ReadSetting(zel::SettingsScope::Machine, "ErrorLogger", QString());
        QCOMPARE((QVariantList{mLog::ConDebug(), mLog::ConTrace(), mLog::ConTrack(), logger}),
                 (QVariantList{1, 0, 3, "my.Logger"}));
        mLog::Reset();
        qunsetenv("ZEL_USER_SETTINGS");
        qunsetenv("ZEL_MACHINE_SETTINGS");
    }

    void propertyBagsDropDefaultsAndSurviveCorruptFiles()
    {
        zelMemoryPropertyBag memory;
        memory.WriteProperty("Margin", 60, 60);
        memory.WriteProperty("Decimals", qint16(2), 2.0);
        memory.WriteProperty("Prefix", "x", QString());
        QCOMPARE(memory.Count(), 1); // values equal to their defaults are not stored
        // Writing the default again removes an earlier value.
        memory.WriteProperty("Prefix", QString(), QString());
        QCOMPARE(memory.Count(), 0);

        QTemporaryDir dir;
        const QString file = dir.filePath("form.json");
        zelJsonPropertyBag out;
        out.WriteProperty("Prefix", "Breite", QString());
        out.WriteProperty("ValueMax", 10.5, 0.0);
        QVERIFY(out.Save(file));
        zelJsonPropertyBag in;
        QVERIFY(in.Load(file));
        QCOMPARE(in.ReadProperty("Prefix", QString()).toString(), "Breite");
        QCOMPARE(in.ReadProperty("ValueMax", 0.0).toDouble(), 10.5);

        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly) && f.write("{ not json") > 0);
        f.close();
        QString why;
        QVERIFY(!in.Load(file, &why));
        QVERIFY(!why.isEmpty());
        QCOMPARE(in.ReadProperty("Prefix", "def").toString(), "def");
        QVERIFY(!in.Load(dir.filePath("missing.json")));

        // A QSettings group keeps its keys apart from other groups' and
        // drops a value written back to its default.
        QSettings store(dir.filePath("form.ini"), QSettings::IniFormat);
        zelSettingsPropertyBag first(store, "inpWidth");
        zelSettingsPropertyBag second(store, "inpHeight");
        first.WriteProperty("Prefix", "Width", QString());
        second.WriteProperty("Prefix", "Height", QString());
        QCOMPARE(first.ReadProperty("Prefix", QString()).toString(), "Width");
        first.WriteProperty("Prefix", QString(), QString());
        QVERIFY(!store.contains("inpWidth/Prefix"));
        QCOMPARE(store.value("inpHeight/Prefix").toString(), "Height");
    }

    void systemColoursComeFromThePalette_data()
    {
        zelColumns<quint32, QPalette::ColorGroup, QPalette::ColorRole>({"colour", "group", "role"});
        zelRow("window", 0x80000005u, QPalette::Active, QPalette::Base);
        zelRow("button face", 0x8000000Fu, QPalette::Active, QPalette::Button);
        zelRow("grey text", 0x80000010u, QPalette::Disabled, QPalette::Text);
        zelRow("unknown index", 0x80000063u, QPalette::Active, QPalette::Base);
    }

    void systemColoursComeFromThePalette()
    {
        const auto [colour, group, role] =
            zelFetch<quint32, QPalette::ColorGroup, QPalette::ColorRole>(
                {"colour", "group", "role"});
        QCOMPARE(zel::ToQColor(colour), QApplication::palette().color(group, role));
        QCOMPARE(zel::ToQColor(0x0000FF), QColor(255, 0, 0)); // plain colours are 0x00BBGGRR
        QCOMPARE(zel::FromQColor(QColor(1, 2, 3)), quint32(0x030201));
    }

    void messageBoxGoesWithTheFormDeletedUnderIt()
    {
        // A host that deletes the form while its message box waits must not
        // see the box deleted twice.
        auto *form = new QWidget;
        form->show();
        QTimer::singleShot(50, form, [form] { delete form; });
        zel::Platform real;
        real.MessageBox("text", "title", form);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(tst_Platform)
#include "tst_platform.moc"
