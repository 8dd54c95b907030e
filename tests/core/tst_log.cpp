// The diagnostic log: switch lookup, message text, swallow and raise rules,
// the logger per message, tracing and instance tracking; and the drop-down
// height: the row floor, the cap that the first band counts towards and the
// second does not, overflow as a logged failure.

#include "core/mLog.h"
#include "core/mMain.h"
#include "core/zelTrail.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QTest>

#include <functional>

class tst_Log : public QObject
{
    Q_OBJECT

private slots:
    void switchesFollowLookupOrder_data()
    {
        zelColumns<QVariant, QVariant, int>({"user", "machine", "expected"});
        QTest::newRow("both unset") << QVariant() << QVariant() << 0;
        QTest::newRow("user wins") << QVariant(1) << QVariant(0) << 1;
        QTest::newRow("user -99 falls back") << QVariant(-99) << QVariant(2) << 2;
        QTest::newRow("user zero wins over machine") << QVariant(0) << QVariant(1) << 0;
        QTest::newRow("text number") << QVariant("1") << QVariant() << 1;
        QTest::newRow("garbage user reads as unset") << QVariant("abc") << QVariant(1) << 1;
        QTest::newRow("garbage machine reads as 0") << QVariant() << QVariant("yes please") << 0;
    }

    void switchesFollowLookupOrder()
    {
        const auto [user, machine, expected] =
            zelFetch<QVariant, QVariant, int>({"user", "machine", "expected"});
        zelTestScope scope;
        for (const char *key : {"ConDebug", "ConTrace", "ConTrack"}) {
            if (user.isValid())
                scope.fake().userSettings.insert(QString::fromLatin1(key), user);
            if (machine.isValid())
                scope.fake().machineSettings.insert(QString::fromLatin1(key), machine);
        }
        QCOMPARE((QList<int>{mLog::ConDebug(), mLog::ConTrace(), mLog::ConTrack()}),
                 QList<int>(3, expected));
        // Read once per process: a later change of the store is not seen.
        for (const char *key : {"ConDebug", "ConTrace", "ConTrack"})
            scope.fake().userSettings.insert(QString::fromLatin1(key), 7);
        QCOMPARE(mLog::ConDebug() + mLog::ConTrace() + mLog::ConTrack(), 3 * expected);
    }

    void messageText_data()
    {
        // moreInfo: its length
        zelColumns<int, int, QStringList>({"number", "moreInfo", "lines"});
        const QString m750(750, QLatin1Char('m'));
        auto row = [&](const char *name, int number, int moreInfo, const char *first,
                       const QString &more = QString()) {
            QStringList lines{first, "Source: zelInputBox.MaxLength Let::inner.",
                              "Description: Bad thing"};
            if (moreInfo)
                lines << QString() << QStringLiteral("More Info: ") + more;
            QTest::newRow(name) << number << moreInfo << lines;
        };
        row("HRESULT in hex", -2147024809, 0, "Error:  80070057");
        row("minus one in hex", -1, 0, "Error:  FFFFFFFF");
        row("positive in decimal", 13, 0, "Error:  13");
        row("zero", 0, 0, "Error:  0");
        row("short more info", 5, 3, "Error:  5", "mmm");
        row("750 whole", 5, 750, "Error:  5", m750);
        row("751 cut", 5, 751, "Error:  5", m750 + QStringLiteral(" ...more... "));
    }

    void messageText()
    {
        const auto [number, moreInfo] = zelFetch<int, int>({"number", "moreInfo"});
        const QString text = mLog::ComposeMessage("zelInputBox.MaxLength Let", number, "inner",
                                                  "Bad thing", QString(moreInfo, QLatin1Char('m')));
        QTEST(text.split(QStringLiteral("\r\n")), "lines");
    }

    void raiseRules_data()
    {
        // raised: the source of the error raised, "" for none
        zelColumns<int, QString, QString, bool, QString>(
            {"conDebug", "trail", "errSource", "raise", "raised"});
        auto row = [](const char *name, int conDebug, const QString &trail, const char *errSource,
                      bool raise, const QString &raised) {
            QTest::newRow(name) << conDebug << trail << QString(errSource) << raise << raised;
        };
        const QString term = "zelFileList.Class_Terminate";
        row("no raise flag", 0, "a.b", "", false, "");
        row("raise, empty source", 0, "a.b", "", true, "a.b");
        row("raise extends trail", 0, "a.b", "c.d", true, "a.b::c.d");
        row("ConDebug 2 swallows", 2, "a.b", "c.d", true, "");
        row("ConDebug 1 still raises", 1, "a.b", "", true, "a.b");
        row("terminate, empty source", 0, term, "", true, "");
        row("terminate, with source raises", 0, term, "x.y", true, term + "::x.y");
    }

    void raiseRules()
    {
        const auto [conDebug, trail, errSource, raise] =
            zelFetch<int, QString, QString, bool>({"conDebug", "trail", "errSource", "raise"});
        zelTestScope scope;
        scope.fake().userSettings.insert("ConDebug", conDebug);
        QString raised;
        try {
            mLog::ErrorLog(trail, zelError(9, errSource, "desc"), QString(), raise);
        } catch (const zelError &e) {
            raised = e.Source();
            QCOMPARE(e.Number(), 9);
            QCOMPARE(e.Description(), "desc");
        }
        QTEST(raised, "raised");
        // Only in debug mode is the message shown to a developer.
        QCOMPARE(scope.fake().messages.size(), conDebug != 0 ? 1 : 0);
        for (const auto &m : std::as_const(scope.fake().messages))
            QCOMPARE(m.title + m.text.left(9), "Debug Mode Error Handler (zelCtrl)Error:  9");
        QCOMPARE(zelCaptureLogger::errors.size(), 1);
    }

    void loggerIsCreatedForEveryMessageAndTrace()
    {
        zelTestScope scope;
        mLog::ErrorLog("zelInputBox.Value Let", zelError(6, "src"), "step", false);
        mLog::TraceLog("zelGridList.SizeColZero", "lSizeCol = ", "1");
        QCOMPARE(zelCaptureLogger::created, 2);
        QCOMPARE(zelCaptureLogger::errors,
                 (QList<QVariantList>{{"zelCtrl", mLog::VersionString(), "zelInputBox.Value Let", 6,
                                       "src", "Overflow", "step"}}));
        QCOMPARE(zelCaptureLogger::traces,
                 (QList<QVariantList>{{"zelCtrl", mLog::VersionString(), "zelGridList.SizeColZero",
                                       "lSizeCol = ", "1"}}));
    }

    void missingOrFailingLoggerFailsNothing()
    {
        zelTestScope scope;
        scope.fake().userSettings.insert("ConDebug", 1);
        // Logs an error through the logger the machine's settings name.
        auto logThrough = [&](const char *logger) {
            scope.fake().machineSettings.insert("ErrorLogger", logger);
            mLog::ErrorLog("a.b", zelError(5), QString(), false);
        };
        logThrough("nobody.Nothing");
        QCOMPARE(scope.fake().messages.size(), 1); // the box is shown all the same
        QCOMPARE(zelCaptureLogger::errors.size(), 0);
        // A logger without the logger's methods: its refusal is shown once,
        // not logged round and round.
        logThrough("zelCtrl.zelGridColumn");
        QCOMPARE(scope.fake().messages.size(), 3);
        QVERIFY(scope.fake().messages[1].text.contains("zelGridColumn.ErrorMessage"));

        zelCaptureLogger::failing = true;
        logThrough(zelTestScope::LoggerProgId);
        mLog::TraceLog("a.b", QString(), QString());
        QCOMPARE(scope.fake().messages.size(), 4);
    }

    void trackerCountsAndTracesFirstCall()
    {
        {
            zelTestScope scope; // tracking off: nothing counted
            mLog::TrackerIncr("zelFileList");
            QCOMPARE(mLog::TrackedCount("zelFileList"), 0);
            QCOMPARE(zelCaptureLogger::traces.size(), 0);
        }
        zelTestScope scope;
        scope.fake().machineSettings.insert("ConTrack", 1);
        mLog::TrackerIncr("zelFileList");
        mLog::TrackerIncr("zelFileList");
        mLog::TrackerIncr("zelFileFilter");
        mLog::TrackerDecr("zelFileList");
        QCOMPARE(mLog::TrackedCount("zelFileList"), 1);
        QCOMPARE(mLog::TrackedCount("zelFileFilter"), 1);
        QCOMPARE(zelCaptureLogger::traces.size(), 1);
        QCOMPARE(zelCaptureLogger::traces[0].mid(3),
                 (QVariantList{QString(20, QLatin1Char('*')), "First call to tracked object"}));
        // A class never counted up is a logged failure, not a crash.
        mLog::TrackerDecr("zelNeverSeen");
        QCOMPARE(zelLoggedErrors("mLog.TrackerDecr"), 1);
    }

    void trailMapsStandardExceptions_data()
    {
        zelColumns<int, int>({"kind", "number"});
        QTest::newRow("overflow") << 0 << 6;
        QTest::newRow("bad_alloc") << 1 << 7;
        QTest::newRow("out_of_range") << 2 << 9;
        QTest::newRow("bad_cast") << 3 << 13;
        QTest::newRow("runtime_error") << 4 << 5;
        QTest::newRow("zelError") << 5 << 380;
    }

    void trailMapsStandardExceptions()
    {
        QFETCH(int, kind);
        zelTestScope scope;
        zel::Trail t("zelTest.Thrower");
        t.Step = "Finished";
        const std::function<void()> throwers[] = {
            [] { throw std::overflow_error("o"); }, [] { throw std::bad_alloc(); },
            [] { throw std::out_of_range("r"); },   [] { throw std::bad_cast(); },
            [] { throw std::runtime_error("x"); },  [] { throw zelError(380); }};
        QVERIFY(!t.Run(throwers[kind])); // not completed
        QCOMPARE(zelCaptureLogger::errors.size(), 1);
        QTEST(zelCaptureLogger::errors[0][3].toInt(), "number");
        QCOMPARE(zelCaptureLogger::errors[0][6].toString(), "Finished");
    }

    void minHeightList_data()
    {
        zelColumns<int, bool, bool, int, int>({"rows", "first", "second", "height", "errors"});
        QTest::newRow("no rows count as one") << 0 << false << false << 20 << 0;
        QTest::newRow("negative rows count as one") << -5 << false << false << 20 << 0;
        QTest::newRow("3 rows, both bands") << 3 << true << true << 92 << 0;
        QTest::newRow("11 rows, highest below the cap") << 11 << false << false << 180 << 0;
        QTest::newRow("12 rows capped") << 12 << false << false << 194 << 0;
        QTest::newRow("first band pushes over the cap") << 11 << true << false << 194 << 0;
        QTest::newRow("second band on top of the cap") << 12 << false << true << 214 << 0;
        QTest::newRow("20 rows, both bands") << 20 << true << true << 214 << 0;
        QTest::newRow("largest row count that fits") << 134217727 << false << false << 194 << 0;
        QTest::newRow("first band overflows") << 134217727 << true << true << 0 << 1;
        QTest::newRow("rows overflow") << 134217728 << false << false << 0 << 1;
    }

    void minHeightList()
    {
        const auto [rows, first, second, errors] =
            zelFetch<int, bool, bool, int>({"rows", "first", "second", "errors"});
        zelTestScope scope;
        QTEST(mMain::MinHeightList(rows, first, second), "height");
        QCOMPARE(zelLoggedErrors("mMain.MinHeightList"), errors);
        QCOMPARE(zelLoggedErrors(), errors);
    }
};

QTEST_MAIN(tst_Log)
#include "tst_log.moc"
