// The platform door: object factory and plugins, late binding, settings
// files, property bags, colours.

#include "core/mLog.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"

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
        std::unique_ptr<QObject> box(zel::CreateObject(QStringLiteral("ZELCTRL.zelinputbox")));
        QVERIFY(box);
        QCOMPARE(box->metaObject()->className(), "zelInputBox");
        QVERIFY(zel::RegisteredProgIds().contains(QStringLiteral("zelCtrl.zelInputBox")));
        // Unknown, empty or failing identifiers answer nothing.
        zel::RegisterProgId(QStringLiteral("zelTest.Throws"),
                            [](QObject *) -> QObject * { throw std::runtime_error("no"); });
        for (const QString &id :
             {QStringLiteral("zelCtrl.NoSuchThing"), QString(), QStringLiteral("zelTest.Throws")})
            QCOMPARE(zel::CreateObject(id), nullptr);
        zel::UnregisterProgId(QStringLiteral("zelTest.Throws"));
    }

    void loggerPluginWritesOneLinePerMessage()
    {
        QTemporaryDir dir;
        const QString log = dir.filePath(QStringLiteral("zel.log"));
        qputenv("ZEL_LOG_FILE", log.toLocal8Bit());
        qputenv("ZEL_PLUGIN_PATH", QByteArray(ZEL_TEST_PLUGIN_DIR));

        std::unique_ptr<QObject> logger(zel::CreateObject(QStringLiteral("zelLog.zelHandler")));
        QVERIFY2(logger, "the logger plugin was not found on the plugin path");

        // The log as hosts run it: the default logger identifier, no fake.
        mLog::Reset();
        mLog::ErrorLog(QStringLiteral("zelInputBox.Value Let"),
                       zelError(13, QStringLiteral("inner")), QStringLiteral("Reading"), false);
        mLog::TraceLog(QStringLiteral("zelGridList.SizeColZero"), QStringLiteral("lSizeCol = "),
                       QStringLiteral("1"));
        mLog::Reset();

        QFile f(log);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QStringList lines =
            QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 2);
        const QStringList error = lines[0].split(QLatin1Char('\t'));
        QCOMPARE(error.size(), 7);
        QCOMPARE(error[1], QStringLiteral("zelCtrl"));
        QCOMPARE(error[2], mLog::VersionString());
        QCOMPARE(error[3], QStringLiteral("zelInputBox.Value Let::inner"));
        QCOMPARE(error[4], QStringLiteral("13"));
        QCOMPARE(error[5], QStringLiteral("Type mismatch"));
        QCOMPARE(error[6], QStringLiteral("Reading"));
        QVERIFY(lines[1].contains(QStringLiteral("lSizeCol = ")));
        qunsetenv("ZEL_LOG_FILE");
        qunsetenv("ZEL_PLUGIN_PATH");
    }

    void lateBoundCalls()
    {
        zelTestScope scope;
        Target t;
        bool ok = false;
        QCOMPARE(zel::CallByName(&t, QStringLiteral("add"), {2, 3}, &ok).toInt(), 5);
        QVERIFY(ok);
        QCOMPARE(zel::CallByName(&t, QStringLiteral("Add"), {2}, &ok).toInt(),
                 12); // default argument
        QVariantList args{QVariant(21)};
        zel::CallByName(&t, QStringLiteral("Twice"), args, &ok);
        QVERIFY(ok);
        QCOMPARE(args[0].toInt(), 42); // by reference
        QCOMPARE(zel::CallByName(&t, QStringLiteral("Echo"), {QStringLiteral("x")}).toString(),
                 QStringLiteral("x"));
        QVERIFY(zel::SetProperty(&t, QStringLiteral("count"), 7));
        QCOMPARE(zel::GetProperty(&t, QStringLiteral("COUNT")).toInt(), 7);
        QVERIFY(!zel::GetProperty(&t, QStringLiteral("Missing")).isValid());
        QCOMPARE(zelCaptureLogger::errors.size(), 0);
        // What a script gets wrong is logged under the member it named, and
        // changes nothing.
        zel::CallByName(&t, QStringLiteral("NoSuchMethod"), {}, &ok);
        QVERIFY(!ok);
        zel::CallByName(&t, QStringLiteral("Add"), {QStringLiteral("not a number"), 1}, &ok);
        QVERIFY(!ok);
        zel::CallByName(&t, QStringLiteral("Add"), {1, 2, 3});
        QVERIFY(!zel::SetProperty(&t, QStringLiteral("Missing"), 1));
        QVERIFY(!zel::SetProperty(&t, QStringLiteral("Count"), QVariantMap{{"a", 1}}));
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
        const QString user = dir.filePath(QStringLiteral("user.ini"));
        const QString machine = dir.filePath(QStringLiteral("machine.ini"));
        {
            QSettings u(user, QSettings::IniFormat);
            u.setValue(QStringLiteral("Common/ConDebug"), 1);
            QSettings m(machine, QSettings::IniFormat);
            m.setValue(QStringLiteral("Common/ConDebug"), 0);
            m.setValue(QStringLiteral("Common/ConTrack"), 3);
            m.setValue(QStringLiteral("Common/ErrorLogger"), QStringLiteral("my.Logger"));
        }
        qputenv("ZEL_USER_SETTINGS", user.toLocal8Bit());
        qputenv("ZEL_MACHINE_SETTINGS", machine.toLocal8Bit());
        mLog::Reset();
        QCOMPARE(mLog::ConDebug(), 1);
        QCOMPARE(mLog::ConTrace(), 0);
        QCOMPARE(mLog::ConTrack(), 3);
        QCOMPARE(
            zel::platform()
                .ReadSetting(zel::SettingsScope::Machine, QStringLiteral("ErrorLogger"), QString())
                .toString(),
            QStringLiteral("my.Logger"));
        mLog::Reset();
        qunsetenv("ZEL_USER_SETTINGS");
        qunsetenv("ZEL_MACHINE_SETTINGS");
    }

    void propertyBagsDropDefaultsAndSurviveCorruptFiles()
    {
        zelMemoryPropertyBag memory;
        memory.WriteProperty(QStringLiteral("Margin"), 60, 60);
        memory.WriteProperty(QStringLiteral("Decimals"), qint16(2), 2.0);
        memory.WriteProperty(QStringLiteral("Prefix"), QStringLiteral("x"), QString());
        QCOMPARE(memory.Count(), 1); // values equal to their defaults are not stored
        // Writing the default again removes an earlier value.
        memory.WriteProperty(QStringLiteral("Prefix"), QString(), QString());
        QCOMPARE(memory.Count(), 0);

        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("form.json"));
        zelJsonPropertyBag out;
        out.WriteProperty(QStringLiteral("Prefix"), QStringLiteral("Breite"), QString());
        out.WriteProperty(QStringLiteral("ValueMax"), 10.5, 0.0);
        QVERIFY(out.Save(file));
        zelJsonPropertyBag in;
        QVERIFY(in.Load(file));
        QCOMPARE(in.ReadProperty(QStringLiteral("Prefix"), QString()).toString(),
                 QStringLiteral("Breite"));
        QCOMPARE(in.ReadProperty(QStringLiteral("ValueMax"), 0.0).toDouble(), 10.5);

        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("{ not json");
        f.close();
        QString why;
        QVERIFY(!in.Load(file, &why));
        QVERIFY(!why.isEmpty());
        QCOMPARE(in.ReadProperty(QStringLiteral("Prefix"), QStringLiteral("def")).toString(),
                 QStringLiteral("def"));
        QVERIFY(!in.Load(dir.filePath(QStringLiteral("missing.json"))));

        // A QSettings group keeps its keys apart from other groups' and
        // drops a value written back to its default.
        QSettings store(dir.filePath(QStringLiteral("form.ini")), QSettings::IniFormat);
        zelSettingsPropertyBag first(store, QStringLiteral("inpWidth"));
        zelSettingsPropertyBag second(store, QStringLiteral("inpHeight"));
        first.WriteProperty(QStringLiteral("Prefix"), QStringLiteral("Width"), QString());
        second.WriteProperty(QStringLiteral("Prefix"), QStringLiteral("Height"), QString());
        QCOMPARE(first.ReadProperty(QStringLiteral("Prefix"), QString()).toString(),
                 QStringLiteral("Width"));
        first.WriteProperty(QStringLiteral("Prefix"), QString(), QString());
        QVERIFY(!store.contains(QStringLiteral("inpWidth/Prefix")));
        QCOMPARE(store.value(QStringLiteral("inpHeight/Prefix")).toString(),
                 QStringLiteral("Height"));
    }

    void systemColoursComeFromThePalette_data()
    {
        QTest::addColumn<quint32>("colour");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("role");
        QTest::newRow("window") << quint32(0x80000005) << int(QPalette::Active)
                                << int(QPalette::Base);
        QTest::newRow("button face")
            << quint32(0x8000000F) << int(QPalette::Active) << int(QPalette::Button);
        QTest::newRow("grey text")
            << quint32(0x80000010) << int(QPalette::Disabled) << int(QPalette::Text);
        QTest::newRow("unknown index")
            << quint32(0x80000063) << int(QPalette::Active) << int(QPalette::Base);
    }

    void systemColoursComeFromThePalette()
    {
        QFETCH(quint32, colour);
        QFETCH(int, group);
        QFETCH(int, role);
        const QColor expected =
            QApplication::palette().color(QPalette::ColorGroup(group), QPalette::ColorRole(role));
        QCOMPARE(zel::ToQColor(colour), expected);
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
        real.MessageBox(QStringLiteral("text"), QStringLiteral("title"), form);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(tst_Platform)
#include "tst_platform.moc"
