// The keyed collection behind every collection class.

#include "core/zelKeyedCollection.h"

#include <QRandomGenerator>
#include <QTest>

#include <vector>

namespace {

struct Item
{
    int id;
};
using Coll = zel::zelKeyedCollection<Item>;

std::shared_ptr<Item> make(int id)
{
    return std::make_shared<Item>(Item{id});
}

} // namespace

class tst_Collection : public QObject
{
    Q_OBJECT

private slots:
    void keysIgnoreLetterCase()
    {
        Coll c;
        QVERIFY(c.Add(make(1), QStringLiteral("Roads")));
        QVERIFY(!c.Add(make(2), QStringLiteral("ROADS")));
        QVERIFY(c.Add(make(3), QStringLiteral("Straße")));
        QCOMPARE(c.ItemByKey(QStringLiteral("roads"))->id, 1);
        QCOMPARE(c.ItemByKey(QStringLiteral("STRASSE")), nullptr); // folding is per character
        QCOMPARE(c.ItemByKey(QStringLiteral("straße"))->id, 3);
        QCOMPARE(c.IndexOfKey(QStringLiteral("rOaDs")), 1);
        QCOMPARE(c.KeyAt(1), QStringLiteral("Roads")); // the spelling it was added with
    }

    void itemByKeyOrPosition_data()
    {
        QTest::addColumn<QVariant>("key");
        QTest::addColumn<int>("expected"); // 0: nothing
        QTest::newRow("position 1") << QVariant(1) << 10;
        QTest::newRow("position 3") << QVariant(3) << 30;
        QTest::newRow("position as double") << QVariant(2.0) << 20;
        QTest::newRow("position 0") << QVariant(0) << 0;
        QTest::newRow("position 4") << QVariant(4) << 0;
        QTest::newRow("negative") << QVariant(-1) << 0;
        QTest::newRow("key") << QVariant(QStringLiteral("b")) << 20;
        QTest::newRow("key upper") << QVariant(QStringLiteral("C")) << 30;
        QTest::newRow("digit text is a key") << QVariant(QStringLiteral("1")) << 0;
        QTest::newRow("unknown key") << QVariant(QStringLiteral("zz")) << 0;
        QTest::newRow("empty key") << QVariant(QString()) << 0;
        QTest::newRow("invalid") << QVariant() << 0;
    }

    void itemByKeyOrPosition()
    {
        QFETCH(QVariant, key);
        QFETCH(int, expected);
        Coll c;
        c.Add(make(10), QStringLiteral("a"));
        c.Add(make(20), QStringLiteral("b"));
        c.Add(make(30), QStringLiteral("c"));
        const auto item = c.Item(key);
        QCOMPARE(item ? item->id : 0, expected);
    }

    void refusalsAnswerFalse()
    {
        Coll c;
        QVERIFY(!c.Add(nullptr));
        QVERIFY(!c.Add(make(1), QString(), 1)); // nothing to stand before
        QVERIFY(!c.Add(make(1), QString(), -1));
        QVERIFY(c.Add(make(1)));
        QVERIFY(c.Add(make(2))); // two members without keys are fine
        QVERIFY(!c.Remove(3));
        QVERIFY(!c.Remove(0));
        QVERIFY(!c.Remove(QStringLiteral("nope")));
        QVERIFY(!c.RemoveKey(QString()));
        QCOMPARE(c.Count(), 2);
    }

    void clearLeavesOldEnumeratorsOnOldMembers()
    {
        Coll c;
        for (int i = 1; i <= 3; ++i)
            c.Add(make(i), QString::number(i));
        auto e = c.NewEnum();
        QCOMPARE(e.Next()->id, 1);
        c.Clear();
        QCOMPARE(c.Count(), 0);
        QVERIFY(c.Add(make(9), QStringLiteral("1"))); // the key is free again
        QCOMPARE(e.Next()->id, 2);
        QCOMPARE(e.Next()->id, 3);
        QCOMPARE(e.Next(), nullptr);
    }

    void matchesPlainModelUnderRandomEdits_data()
    {
        QTest::addColumn<int>("initial");
        QTest::addColumn<int>("edits");
        QTest::newRow("small") << 10 << 2000;
        QTest::newRow("several chunks") << 5000 << 4000;
    }

    // Inserts and removals in the middle move members between chunks; every
    // position and key must still answer what a plain vector says.
    void matchesPlainModelUnderRandomEdits()
    {
        QFETCH(int, initial);
        QFETCH(int, edits);
        QRandomGenerator rng(42);
        Coll c;
        std::vector<int> model;
        std::vector<int> removed;
        int next = 0;
        for (int i = 0; i < initial; ++i) {
            c.Add(make(next), QStringLiteral("k%1").arg(next));
            model.push_back(next++);
        }
        for (int e = 0; e < edits; ++e) {
            const int op = rng.bounded(3);
            if (op == 0 || model.empty()) {
                const int pos = model.empty() ? 0 : rng.bounded(int(model.size()) + 1);
                const bool append = pos == int(model.size());
                QVERIFY(c.Add(make(next), QStringLiteral("K%1").arg(next), append ? 0 : pos + 1));
                model.insert(model.begin() + pos, next++);
            } else if (op == 1) {
                const int pos = rng.bounded(int(model.size()));
                QVERIFY(c.RemoveAt(pos + 1));
                removed.push_back(model[size_t(pos)]);
                model.erase(model.begin() + pos);
            } else {
                const int pos = rng.bounded(int(model.size()));
                QVERIFY(c.RemoveKey(QStringLiteral("k%1").arg(model[size_t(pos)])));
                removed.push_back(model[size_t(pos)]);
                model.erase(model.begin() + pos);
            }
        }
        QCOMPARE(c.Count(), int(model.size()));
        for (size_t i = 0; i < model.size(); ++i) {
            QCOMPARE(c.ItemAt(int(i) + 1)->id, model[i]);
            QCOMPARE(c.IndexOfKey(QStringLiteral("k%1").arg(model[i])), int(i) + 1);
        }
        for (int id : removed)
            QCOMPARE(c.IndexOfKey(QStringLiteral("k%1").arg(id)), 0);
        size_t i = 0;
        for (const auto &item : c)
            QCOMPARE(item->id, model[i++]);
        QCOMPARE(i, model.size());
    }
};

QTEST_MAIN(tst_Collection)
#include "tst_collection.moc"
