// Objects made by program identifier meet collections that hold shared
// references: in whatever order the host, a parent and the collections let
// go, each object is freed exactly once, when the last of them lets go; a
// delete of an object that the host never owned frees nothing and is logged.
// Run under the address sanitizer, a double free or a read of a freed
// member fails here.

#include "core/zelShared.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"

#include <QCoreApplication>
#include <QTest>

class tst_Shared : public QObject
{
    Q_OBJECT

private slots:
    void freedOnceByTheLastOwner_data()
    {
        QTest::addColumn<QString>("steps");
        QTest::addColumn<int>("freedAfter"); // index of the step that frees it
        QTest::addColumn<int>("errors");
        QTest::newRow("never added") << "delete" << 0 << 0;
        QTest::newRow("host deletes, then clear") << "add delete read clear" << 3 << 0;
        QTest::newRow("clear, then host deletes") << "add clear delete" << 2 << 0;
        QTest::newRow("collection goes first") << "add drop delete" << 2 << 0;
        QTest::newRow("host deletes, then collection goes") << "add delete read drop" << 3 << 0;
        QTest::newRow("deleteLater, then remove") << "add later read remove" << 3 << 0;
        QTest::newRow("in two collections") << "add add2 delete clear read2 drop2" << 5 << 0;
        QTest::newRow("parent goes, never added") << "parent orphan" << 1 << 0;
        QTest::newRow("parent goes after adoption") << "parent add orphan read clear" << 4 << 0;
        QTest::newRow("host deletes, parent goes") << "parent add delete orphan read drop" << 5 << 0;
        QTest::newRow("made by the library, host deletes")
            << "create delete read clear" << 3 << 1;
    }

    void freedOnceByTheLastOwner()
    {
        QFETCH(QString, steps);
        QFETCH(int, freedAfter);
        QFETCH(int, errors);
        for (const QString &kind : {QStringLiteral("Row"), QStringLiteral("Column")}) {
            zelTestScope scope;
            const QString key = kind == QLatin1String("Row") ? "Key" : "Caption";
            auto make = [&](const QString &name, QObject *parent = nullptr) {
                return zel::CreateObject(QStringLiteral("zelCtrl.zelGrid") + name, parent);
            };
            auto parent = std::make_unique<QObject>();
            std::unique_ptr<QObject> first(make(kind + 's')), second(make(kind + 's'));
            QObject *member = nullptr;
            int freed = 0;
            auto watch = [&](QObject *o) {
                QVERIFY(o);
                member = o;
                connect(o, &QObject::destroyed, [&] { ++freed; });
            };
            const QStringList list = steps.split(u' ');
            if (list[0] != QLatin1String("create")) {
                watch(make(kind, list[0] == QLatin1String("parent") ? parent.get() : nullptr));
                zel::SetProperty(member, key, QStringLiteral("k"));
            }
            for (int i = 0; i < list.size(); ++i) {
                const QString &s = list[i];
                QObject *coll = s.endsWith(u'2') ? second.get() : first.get();
                if (s == QLatin1String("create"))
                    watch(zel::ObjectOf(zel::CallByName(coll, "Create", {"k", 0})));
                else if (s.startsWith(QLatin1String("add")))
                    QVERIFY(zel::CallByName(coll, "Add", {QVariant::fromValue(member)}).toBool());
                else if (s.startsWith(QLatin1String("read")))
                    QCOMPARE(zel::GetProperty(zel::ObjectOf(zel::CallByName(coll, "Item", {"K"})),
                                              key),
                             QVariant("k"));
                else if (s == QLatin1String("delete"))
                    delete member;
                else if (s == QLatin1String("later")) {
                    member->deleteLater();
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                }
                else if (s == QLatin1String("orphan"))
                    parent.reset();
                else if (s == QLatin1String("clear"))
                    zel::CallByName(coll, "Clear");
                else if (s == QLatin1String("remove"))
                    QVERIFY(zel::CallByName(coll, "Remove", {1}).toBool());
                else if (s.startsWith(QLatin1String("drop")))
                    (s == QLatin1String("drop") ? first : second).reset();
                QVERIFY2(freed == (i >= freedAfter ? 1 : 0),
                         qPrintable(kind + QStringLiteral(" after ") + s + QStringLiteral(": freed ") +
                                    QString::number(freed)));
            }
            QCOMPARE(zelLoggedErrors(), errors);
        }
    }
};

QTEST_MAIN(tst_Shared)
#include "tst_shared.moc"
