// The column and row descriptions of the grid list and their collections.

#include "grid/zelGridColumns.h"
#include "grid/zelGridRows.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "zelFakePlatform.h"

#include <QtTest>

namespace {

// Rows "A", "B", "C" keyed "a", "b", "c".
std::shared_ptr<zelGridRows> threeRows()
{
    auto rows = std::make_shared<zelGridRows>();
    for (const char *k : {"a", "b", "c"})
        rows->Create(QString::fromLatin1(k), QString::fromLatin1(k).toUpper());
    return rows;
}

QString order(const zelGridRows &rows)
{
    QString s;
    for (const auto &r : rows)
        s += r->Data();
    return s;
}

} // namespace

class tst_zelGridRows : public QObject
{
    Q_OBJECT

private slots:
    void moveFollowsItsRules_data();
    void moveFollowsItsRules();
    void moveKeepsKeysAndArguments();
    void rowsRefuseADuplicateKeyButTakeEmptyKeys();
    void columnsAreKeyedByCaptionWithoutLetterCase();
    void createdColumnHasCaptionThenAlignment();
    void itemAndRemoveTakeKeyOrPosition_data();
    void itemAndRemoveTakeKeyOrPosition();
    void clearLeavesEarlierEnumeratorsWalking();
    void newRowAndColumnDefaults();
    void keyIsFixedWhenAdded();
    void lateBoundCallerWalksEverything();
    void wrongTypeByNameIsLoggedAndValueKept();
    void programIdsCreateEachClass();
    void rowCellsSplitAndReplace_data();
    void rowCellsSplitAndReplace();
};

void tst_zelGridRows::moveFollowsItsRules_data()
{
    QTest::addColumn<int>("oldIndex");
    QTest::addColumn<int>("newIndex");
    QTest::addColumn<bool>("answer");
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("loggedErrors");

    QTest::newRow("last to last appends") << 3 << 3 << true << "ABC" << 0;
    QTest::newRow("first to last") << 1 << 3 << true << "BCA" << 0;
    QTest::newRow("last to first") << 3 << 1 << true << "CAB" << 0;
    QTest::newRow("second up") << 2 << 1 << true << "BAC" << 0;
    QTest::newRow("second down") << 2 << 3 << true << "ACB" << 0;
    QTest::newRow("first down one") << 1 << 2 << true << "BAC" << 0;
    QTest::newRow("same place in the middle") << 2 << 2 << true << "ABC" << 0;
    QTest::newRow("new index past the count") << 1 << 4 << false << "ABC" << 0;
    QTest::newRow("old index zero") << 0 << 1 << false << "ABC" << 0;
    QTest::newRow("old index negative") << -5 << 2 << false << "ABC" << 0;
    // A target below 1 is not checked first: the row is taken out, cannot
    // go back in, and the failure is logged.
    QTest::newRow("new index zero loses the row") << 2 << 0 << false << "AC" << 1;
    QTest::newRow("new index negative loses the row") << 1 << -1 << false << "BC" << 1;
    QTest::newRow("old index past the count") << 4 << 2 << false << "ABC" << 1;
}

void tst_zelGridRows::moveFollowsItsRules()
{
    QFETCH(int, oldIndex);
    QFETCH(int, newIndex);
    QFETCH(bool, answer);
    QFETCH(QString, order);
    QFETCH(int, loggedErrors);
    zelTestScope scope;

    auto rows = threeRows();
    qint32 o = oldIndex, n = newIndex;
    QCOMPARE(rows->Move(o, n), answer);
    QCOMPARE(::order(*rows), order);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), loggedErrors);
    QCOMPARE(zelLoggedErrors(), loggedErrors);
}

void tst_zelGridRows::moveKeepsKeysAndArguments()
{
    zelTestScope scope;
    auto rows = threeRows();
    qint32 o = 1, n = 3;
    QVERIFY(rows->Move(o, n));
    QCOMPARE(o, 1);
    QCOMPARE(n, 3);
    // The moved row is still found by its key, at its new place.
    QCOMPARE(rows->IndexOfKey(QStringLiteral("A")), 3);
    QCOMPARE(rows->Item(QStringLiteral("a"))->Data(), QStringLiteral("A"));

    // A row without a key moves without one.
    auto plain = std::make_shared<zelGridRows>();
    plain->Create(QString(), QStringLiteral("x"));
    plain->Create(QString(), QStringLiteral("y"));
    o = 2, n = 1;
    QVERIFY(plain->Move(o, n));
    QCOMPARE(order(*plain), QStringLiteral("yx"));
    QCOMPARE(plain->KeyAt(1), QString());

    // Late bound, the by-reference arguments come back unchanged.
    QVariantList args{3, 1};
    bool ok = false;
    QCOMPARE(zel::CallByName(rows.get(), QStringLiteral("Move"), args, &ok).toBool(), true);
    QVERIFY(ok);
    QCOMPARE(args, (QVariantList{3, 1}));
    QCOMPARE(order(*rows), QStringLiteral("ABC"));
}

void tst_zelGridRows::rowsRefuseADuplicateKeyButTakeEmptyKeys()
{
    zelTestScope scope;
    zelGridRows rows;
    QVERIFY(rows.Create(QStringLiteral("k1"), QStringLiteral("one")));
    QVERIFY(!rows.Create(QStringLiteral("K1"), QStringLiteral("again")));
    auto twin = std::make_shared<zelGridRow>();
    twin->SetKey(QStringLiteral("k1"));
    QVERIFY(!rows.Add(twin));
    QCOMPARE(rows.Count(), 1);
    QCOMPARE(rows.Item(1)->Data(), QStringLiteral("one"));

    QVERIFY(rows.Create(QString(), QStringLiteral("a")));
    QVERIFY(rows.Create(QString(), QStringLiteral("b")));
    QVERIFY(rows.Add(std::make_shared<zelGridRow>()));
    QCOMPARE(rows.Count(), 4);
    QVERIFY(!rows.Add(std::shared_ptr<zelGridRow>()));
    QVERIFY(!rows.Add(static_cast<QObject *>(&rows)));
    QCOMPARE(rows.Count(), 4);
    // None of these refusals is an error for the log.
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridRows::columnsAreKeyedByCaptionWithoutLetterCase()
{
    zelTestScope scope;
    zelGridColumns cols;
    QVERIFY(cols.Create(QStringLiteral("Name")));
    QVERIFY(!cols.Create(QStringLiteral("NAME")));
    auto twin = std::make_shared<zelGridColumn>();
    twin->SetCaption(QStringLiteral("name"));
    QVERIFY(!cols.Add(twin));
    QCOMPARE(cols.Count(), 1);
    QVERIFY(cols.Create(QStringLiteral("Value"), ZEL_ColumnAlignRight));
    QCOMPARE(cols.Item(QStringLiteral("value"))->Alignment(), ZEL_ColumnAlignRight);
    QCOMPARE(cols.Item(1)->Caption(), QStringLiteral("Name"));
}

void tst_zelGridRows::createdColumnHasCaptionThenAlignment()
{
    zelTestScope scope;
    zelGridColumns cols;
    auto left = cols.Create(QStringLiteral("L"));
    QCOMPARE(left->Alignment(), ZEL_ColumnAlignLeft);
    auto centre = cols.Create(QStringLiteral("C"), ZEL_ColumnAlignCenter);
    QCOMPARE(int(centre->Alignment()), 3);
    // Made directly, a column has no alignment of its own.
    QCOMPARE(int(zelGridColumn().Alignment()), 0);
}

void tst_zelGridRows::itemAndRemoveTakeKeyOrPosition_data()
{
    QTest::addColumn<QVariant>("key");
    QTest::addColumn<QString>("item");
    QTest::addColumn<bool>("removed");
    QTest::addColumn<QString>("left");

    QTest::newRow("position") << QVariant(2) << "B" << true << "AC";
    QTest::newRow("position as double") << QVariant(3.0) << "C" << true << "AB";
    QTest::newRow("key") << QVariant(QStringLiteral("c")) << "C" << true << "AB";
    QTest::newRow("key other case") << QVariant(QStringLiteral("A")) << "A" << true << "BC";
    QTest::newRow("position zero") << QVariant(0) << "" << false << "ABC";
    QTest::newRow("position past the end") << QVariant(4) << "" << false << "ABC";
    QTest::newRow("unknown key") << QVariant(QStringLiteral("zz")) << "" << false << "ABC";
    QTest::newRow("empty key") << QVariant(QString()) << "" << false << "ABC";
    QTest::newRow("nothing") << QVariant() << "" << false << "ABC";
}

void tst_zelGridRows::itemAndRemoveTakeKeyOrPosition()
{
    QFETCH(QVariant, key);
    QFETCH(QString, item);
    QFETCH(bool, removed);
    QFETCH(QString, left);
    zelTestScope scope;
    auto rows = threeRows();
    const auto found = rows->Item(key);
    QCOMPARE(found ? found->Data() : QString(), item);
    QCOMPARE(rows->Remove(key), removed);
    QCOMPARE(order(*rows), left);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridRows::clearLeavesEarlierEnumeratorsWalking()
{
    zelTestScope scope;
    auto rows = threeRows();
    auto before = rows->NewEnum();
    QCOMPARE(qvariant_cast<QObject *>(before->Next())->property("Data").toString(),
             QStringLiteral("A"));
    rows->Clear();
    QCOMPARE(rows->Count(), 0);
    QVERIFY(!rows->NewEnum()->Next().isValid());
    QString rest;
    for (QVariant v = before->Next(); v.isValid(); v = before->Next())
        rest += qvariant_cast<QObject *>(v)->property("Data").toString();
    QCOMPARE(rest, QStringLiteral("BC"));
    before->Reset();
    QVERIFY(before->Next().isValid());

    // The cleared collection takes the old keys again.
    QVERIFY(rows->Create(QStringLiteral("a"), QStringLiteral("new")));

    zelGridColumns cols;
    cols.Create(QStringLiteral("x"));
    auto colEnum = cols.NewEnum();
    cols.Clear();
    QCOMPARE(cols.Count(), 0);
    QCOMPARE(qvariant_cast<QObject *>(colEnum->Next())->property("Caption").toString(),
             QStringLiteral("x"));
    QVERIFY(!colEnum->Next().isValid());
}

void tst_zelGridRows::newRowAndColumnDefaults()
{
    zelTestScope scope;
    zelGridRow row;
    QCOMPARE(row.RowColor(), 0x80000005u);
    QCOMPARE(row.Checked(), false);
    QCOMPARE(row.Selected(), false);
    QCOMPARE(row.Key(), QString());
    QVERIFY(!row.Tag().isValid());
    QCOMPARE(zel::GetProperty(&row, QStringLiteral("RowColor")).toUInt(), 0x80000005u);

    zelGridColumn col;
    QCOMPARE(col.Width(), 0);
    QCOMPARE(col.DataType(), 0);
    QCOMPARE(col.AllowEdit(), false);
    QCOMPARE(col.ComboList(), QString());
}

void tst_zelGridRows::keyIsFixedWhenAdded()
{
    zelTestScope scope;
    zelGridRows rows;
    auto row = rows.Create(QStringLiteral("old"), QStringLiteral("x"));
    row->SetKey(QStringLiteral("new"));
    QCOMPARE(rows.Item(QStringLiteral("old")), row);
    QVERIFY(!rows.Item(QStringLiteral("new")));

    zelGridColumns cols;
    auto col = cols.Create(QStringLiteral("First"));
    col->SetCaption(QStringLiteral("Second"));
    QCOMPARE(cols.Item(QStringLiteral("first")), col);
    QVERIFY(cols.Create(QStringLiteral("Second")));
}

void tst_zelGridRows::lateBoundCallerWalksEverything()
{
    zelTestScope scope;
    std::unique_ptr<QObject> rows(zel::CreateObject(QStringLiteral("zelCtrl.zelGridRows")));
    QVERIFY(rows);
    bool ok = false;
    const QVariant tag = QVariant::fromValue<QObject *>(rows.get());
    QObject *row = qvariant_cast<QObject *>(
        zel::CallByName(rows.get(), QStringLiteral("Create"),
                        QVariantList{QStringLiteral("k"), QStringLiteral("a\tb"), tag}, &ok));
    QVERIFY(ok);
    QVERIFY(row);
    QCOMPARE(zel::GetProperty(row, QStringLiteral("Key")).toString(), QStringLiteral("k"));
    QCOMPARE(qvariant_cast<QObject *>(zel::GetProperty(row, QStringLiteral("Tag"))), rows.get());
    QVERIFY(zel::SetProperty(row, QStringLiteral("Data"), QStringLiteral("c")));
    QVERIFY(zel::SetProperty(row, QStringLiteral("Selected"), true));
    QVERIFY(zel::SetProperty(row, QStringLiteral("Checked"), QStringLiteral("True")));
    QVERIFY(zel::SetProperty(row, QStringLiteral("RowColor"), 255));
    QCOMPARE(zel::GetProperty(row, QStringLiteral("Selected")).toBool(), true);
    QCOMPARE(zel::GetProperty(row, QStringLiteral("Checked")).toBool(), true);
    QCOMPARE(zel::GetProperty(row, QStringLiteral("RowColor")).toUInt(), 255u);

    // A row made by program identifier joins a collection by reference.
    QObject *made = zel::CreateObject(QStringLiteral("zelCtrl.zelGridRow"));
    zel::SetProperty(made, QStringLiteral("Key"), QStringLiteral("m"));
    QVERIFY(zel::CallByName(rows.get(), QStringLiteral("Add"),
                            QVariantList{QVariant::fromValue(made)}, &ok)
                .toBool());
    QCOMPARE(zel::CallByName(rows.get(), QStringLiteral("Count")).toInt(), 2);
    QCOMPARE(zel::GetProperty(rows.get(), QStringLiteral("Count")).toInt(), 2);
    QCOMPARE(qvariant_cast<QObject *>(
                 zel::CallByName(rows.get(), QStringLiteral("Item"), QVariantList{2})),
             made);
    QCOMPARE(qvariant_cast<QObject *>(zel::CallByName(rows.get(), QStringLiteral("Item"),
                                                      QVariantList{QStringLiteral("M")})),
             made);
    // The caller holds the enumerator as long as it keeps the answer.
    const QVariant enumerator = zel::CallByName(rows.get(), QStringLiteral("NewEnum"));
    QObject *walker = qvariant_cast<QObject *>(enumerator);
    QVERIFY(walker);
    int walked = 0;
    while (QObject *o = qvariant_cast<QObject *>(zel::CallByName(walker, QStringLiteral("Next")))) {
        QVERIFY(!zel::GetProperty(o, QStringLiteral("Data")).isNull());
        ++walked;
    }
    QCOMPARE(walked, 2);
    QVERIFY(zel::CallByName(rows.get(), QStringLiteral("Remove"), QVariantList{1}).toBool());
    zel::CallByName(rows.get(), QStringLiteral("Clear"));
    QCOMPARE(zel::CallByName(rows.get(), QStringLiteral("Count")).toInt(), 0);

    std::unique_ptr<QObject> cols(zel::CreateObject(QStringLiteral("zelCtrl.zelGridColumns")));
    QObject *col = qvariant_cast<QObject *>(
        zel::CallByName(cols.get(), QStringLiteral("Create"),
                        QVariantList{QStringLiteral("Value"), int(ZEL_ColumnAlignRight)}, &ok));
    QVERIFY(col);
    const QVariantList colValues{240,
                                 2,
                                 5,
                                 QStringLiteral("a|b"),
                                 QStringLiteral("Amount"),
                                 true,
                                 3,
                                 QVariant::fromValue<QObject *>(cols.get())};
    const char *colNames[] = {"Width",   "Decimals",  "DataType",  "ComboList",
                              "Caption", "AllowEdit", "Alignment", "Tag"};
    for (int i = 0; i < 8; ++i) {
        QVERIFY2(zel::SetProperty(col, QString::fromLatin1(colNames[i]), colValues[i]),
                 colNames[i]);
        QCOMPARE(zel::GetProperty(col, QString::fromLatin1(colNames[i])), colValues[i]);
    }
    QVERIFY(zel::CallByName(cols.get(), QStringLiteral("Item"), QVariantList{1}).isValid());
    QVERIFY(zel::CallByName(cols.get(), QStringLiteral("NewEnum")).isValid());
    QVERIFY(zel::CallByName(cols.get(), QStringLiteral("Remove"), QVariantList{1}).toBool());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridRows::wrongTypeByNameIsLoggedAndValueKept()
{
    zelTestScope scope;
    zelGridColumn col;
    col.SetWidth(300);
    zel::SetProperty(&col, QStringLiteral("Width"), QStringLiteral("wide"));
    QCOMPARE(col.Width(), 300);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridColumn.Width Let")), 1);
    zel::SetProperty(&col, QStringLiteral("AllowEdit"), QStringLiteral("maybe"));
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridColumn.AllowEdit Let")), 1);

    zelGridRow row;
    zel::SetProperty(&row, QStringLiteral("RowColor"), QStringLiteral("red"));
    QCOMPARE(row.RowColor(), 0x80000005u);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRow.RowColor Let")), 1);
    QCOMPARE(zelCaptureLogger::errors.first().value(3).toInt(), 13);
}

void tst_zelGridRows::programIdsCreateEachClass()
{
    for (const char *name : {"zelGridColumn", "zelGridColumns", "zelGridRow", "zelGridRows"}) {
        std::unique_ptr<QObject> o(
            zel::CreateObject(QStringLiteral("zelCtrl.") + QString::fromLatin1(name)));
        QVERIFY2(o, name);
        QCOMPARE(QString::fromLatin1(o->metaObject()->className()), QString::fromLatin1(name));
    }
}

void tst_zelGridRows::rowCellsSplitAndReplace_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("after");

    QTest::newRow("first") << "a\tb\tc" << 0 << "a"
                           << "X\tb\tc";
    QTest::newRow("middle") << "a\tb\tc" << 1 << "b"
                            << "a\tX\tc";
    QTest::newRow("last") << "a\tb\tc" << 2 << "c"
                          << "a\tb\tX";
    QTest::newRow("past the end") << "a\tb" << 3 << ""
                                  << "a\tb\t\tX";
    QTest::newRow("empty cells") << "\t\t" << 1 << ""
                                 << "\tX\t";
    QTest::newRow("empty text") << "" << 0 << ""
                                << "X";
    QTest::newRow("negative") << "a" << -1 << ""
                              << "a";
}

void tst_zelGridRows::rowCellsSplitAndReplace()
{
    QFETCH(QString, data);
    QFETCH(int, column);
    QFETCH(QString, cell);
    QFETCH(QString, after);
    zelGridRow row;
    row.SetData(data);
    QCOMPARE(row.Cell(column).toString(), cell);
    row.SetCell(column, QStringLiteral("X"));
    QCOMPARE(row.Data(), after);
}

QTEST_MAIN(tst_zelGridRows)
#include "tst_zelGridRows.moc"
