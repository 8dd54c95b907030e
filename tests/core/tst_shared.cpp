// In whatever order the maker, a parent and the collections let go of an
// object made by program identifier, it is freed once, by the last of them;
// a delete of an object the host never owned frees nothing and is logged.

#include "core/zelShared.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QCoreApplication>
#include <QTest>

class tst_Shared : public QObject
{
    Q_OBJECT

private slots:
    void freedOnceByTheLastOwner_data()
    {
        // freedAt: index of the step that frees it
        zelColumns<QString, int, int>({"steps", "freedAt", "errors"});
        QTest::newRow("never added") << "delete" << 0 << 0;
        QTest::newRow("deleted, then cleared") << "add delete read clear" << 3 << 0;
        QTest::newRow("cleared, then deleted") << "add clear delete" << 2 << 0;
        QTest::newRow("collection goes, then deleted") << "add drop delete" << 2 << 0;
        QTest::newRow("deleted, then collection goes") << "add delete read drop" << 3 << 0;
        QTest::newRow("deleteLater, then removed") << "add later read remove" << 3 << 0;
        QTest::newRow("in two collections") << "add add2 delete clear read2 drop2" << 5 << 0;
        QTest::newRow("parent goes, never added") << "parent orphan" << 1 << 0;
        QTest::newRow("parent goes after adoption") << "parent add orphan read clear" << 4 << 0;
        QTest::newRow("deleted, parent goes") << "parent add delete orphan read drop" << 5 << 0;
        QTest::newRow("made by the library, deleted") << "create delete read clear" << 3 << 1;
    }

    void freedOnceByTheLastOwner()
    {
        const auto [steps, freedAt] = zelFetch<QString, int>({"steps", "freedAt"});
        for (const QString kind : {"zelCtrl.zelGridRow", "zelCtrl.zelGridColumn"}) {
            zelTestScope scope;
            const QString key = kind.endsWith(u"Row") ? "Key" : "Caption";
            auto parent = std::make_unique<QObject>();
            std::unique_ptr<QObject> first(zel::CreateObject(kind + 's')),
                second(zel::CreateObject(kind + 's'));
            QObject *member = nullptr;
            int freed = 0;
            const QStringList list = steps.split(u' ');
            for (int i = 0; i < list.size(); ++i) {
                const QString &s = list[i];
                QObject *coll = (s.endsWith(u'2') ? second : first).get();
                if (i == 0) {
                    member = s == "create"
                                 ? zel::ObjectOf(zel::CallByName(coll, "Create", {"k", 0}))
                                 : zel::CreateObject(kind, s == "parent" ? parent.get() : nullptr);
                    zel::SetProperty(member, key, "k");
                    connect(member, &QObject::destroyed, [&] { ++freed; });
                }
                if (s.startsWith(u"add"))
                    QVERIFY(zel::CallByName(coll, "Add", {QVariant::fromValue(member)}).toBool());
                else if (s.startsWith(u"read"))
                    QCOMPARE(zel::ObjectOf(zel::CallByName(coll, "Item", {"K"})), member);
                else if (s == "delete")
                    delete member;
                else if (s == "later")
                    member->deleteLater();
                else if (s == "orphan")
                    parent.reset();
                else if (s == "clear")
                    zel::CallByName(coll, "Clear");
                else if (s == "remove")
                    QVERIFY(zel::CallByName(coll, "Remove", {1}).toBool());
                else if (s.startsWith(u"drop"))
                    (s == "drop" ? first : second).reset();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QVERIFY2(freed == (i >= freedAt), qPrintable(kind + " after " + s));
            }
            QTEST(zelLoggedErrors(), "errors");
        }
    }
};

QTEST_MAIN(tst_Shared)
#include "tst_shared.moc"
