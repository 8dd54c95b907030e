// The keyed collection behind every collection class.

#include "core/zelKeyedCollection.h"
#include "zelTestData.h"

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

// A key or position and the item it finds.
std::pair<QVariant, int> at(const QVariant &key, int expected)
{
    return {key, expected};
}

} // namespace

class tst_Collection : public QObject
{
    Q_OBJECT

private slots:
    void itemByKeyOrPosition_data()
    {
        zelColumns<QVariant, int>({"key", "expected"});
        // expected: 0: nothing. Positions count from 1, also as a double; a key
        // in any letter case, folded character by character; a digit text is a key.
        for (const auto &[key, expected] :
             {at(1, 10), at(3, 30), at(2.0, 20), at(0, 0), at(4, 0), at(-1, 0), at("b", 20),
              at("A", 10), at("straße", 30), at("STRASSE", 0), at("1", 0), at("zz", 0),
              at(QString(), 0), at(QVariant(), 0)})
            QTest::newRow(qPrintable(QString::fromLatin1(key.typeName()) + " " + key.toString()))
                << key << expected;
    }

    void itemByKeyOrPosition()
    {
        QFETCH(QVariant, key);
        Coll c;
        c.Add(make(10), QStringLiteral("a"));
        c.Add(make(20), QStringLiteral("b"));
        c.Add(make(30), QStringLiteral("Straße"));
        const auto item = c.Item(key);
        QTEST(item ? item->id : 0, "expected");
    }

    void refusalsAnswerFalse()
    {
        Coll c;
        QVERIFY(!c.Add(nullptr));
        QVERIFY(!c.Add(make(1), QString(), 1)); // nothing to stand before
        QVERIFY(!c.Add(make(1), QString(), -1));
        QVERIFY(c.Add(make(1), QStringLiteral("Roads")));
        QVERIFY(!c.Add(make(2), QStringLiteral("ROADS"))); // keys ignore letter case
        QCOMPARE(c.IndexOfKey(QStringLiteral("rOaDs")), 1);
        QCOMPARE(c.KeyAt(1), "Roads"); // the spelling it was added with
        QVERIFY(c.Add(make(2)));
        QVERIFY(c.Add(make(3))); // two members without keys are fine
        QCOMPARE((QList<bool>{c.Remove(4), c.Remove(0), c.Remove("nope"), c.RemoveKey(QString())}),
                 QList<bool>(4, false));
        QCOMPARE(c.Count(), 3);
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
        zelColumns<int, int>({"initial", "edits"});
        QTest::newRow("small") << 10 << 2000;
        QTest::newRow("several chunks") << 5000 << 4000;
    }

    // Inserts and removals in the middle move members between chunks; every
    // position and key must still answer what a plain vector says.
    void matchesPlainModelUnderRandomEdits()
    {
        const auto [initial, edits] = zelFetch<int, int>({"initial", "edits"});
        QRandomGenerator rng(42);
        Coll c;
        std::vector<int> model, removed;
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
            } else { // by position or by key, inserted keys in other letters
                const int pos = rng.bounded(int(model.size()));
                const QString key = QStringLiteral("k%1").arg(model[size_t(pos)]);
                QVERIFY(op == 1 ? c.RemoveAt(pos + 1) : c.RemoveKey(key));
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
