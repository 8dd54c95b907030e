// The grid list's rows, columns, sizing, persistence and late-bound surface.

#include "grid/zelGridList.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "zelFakePlatform.h"
#include "zelGridTestSupport.h"

#include <QHeaderView>
#include <QMetaMethod>
#include <QPushButton>
#include <QtTest>

namespace {

// Columns from a list such as "b240,s0,n1000": b boolean, s string,
// n number, then the column's own Width in twips.
void addColumns(zelGridList &g, const QString &spec)
{
    int i = 0;
    for (const QString &part : spec.split(QLatin1Char(','))) {
        const qint32 type = part.at(0) == QLatin1Char('b')   ? 11
                            : part.at(0) == QLatin1Char('n') ? 5
                                                             : 8;
        g.AddColumnEx(QStringLiteral("c%1").arg(i++), ZEL_ColumnAlignLeft, type, 0,
                      qint16(part.mid(1).toInt()));
    }
}

QString widths(const zelGridList &g)
{
    QStringList w;
    for (int c = 0; c < g.Grid()->model()->columnCount(); ++c)
        w << QString::number(g.ColumnWidth(c));
    return w.join(QLatin1Char(','));
}

QString captions(const zelGridList &g)
{
    QStringList c;
    for (const auto &col : *g.Columns())
        c << col->Caption();
    return c.join(QLatin1Char('|'));
}

// A grid exactly 6000 twips wide inside: no border, margin or buttons.
std::unique_ptr<zelGridList> bareList()
{
    auto g = std::make_unique<zelGridList>();
    g->SetBorderStyle(0);
    g->SetMargin(0);
    g->SetTopMargin(0);
    g->SetButtonsVisible(0);
    g->resize(400, 300);
    g->LayoutControl();
    return g;
}

} // namespace

class tst_zelGridList : public QObject
{
    Q_OBJECT

private slots:
    void sizeColZeroFillsOrKeepsOwnWidth_data();
    void sizeColZeroFillsOrKeepsOwnWidth();
    void sizeColZeroTracesItsValues();
    void sizeColZeroFollowsTheControlsWidth();
    void checkBoxesSwitchTheFirstColumn_data();
    void checkBoxesSwitchTheFirstColumn();
    void addItemAtAPositionKeepsGridAndItemsInStep_data();
    void addItemAtAPositionKeepsGridAndItemsInStep();
    void addItemWithATakenKeyChangesNothing();
    void firstRowBecomesCurrentWithoutEvents_data();
    void firstRowBecomesCurrentWithoutEvents();
    void addItemExChecksTheRow();
    void removeAndClearKeepTheGridInStep();
    void hostChangingItemsDirectlyIsShownAgain();
    void columnsClearedWhileRowsExist();
    void setItemReplacesTheText_data();
    void setItemReplacesTheText();
    void rowColourByRowAndByKey_data();
    void rowColourByRowAndByKey();
    void colourCellsShowTheirNumber_data();
    void colourCellsShowTheirNumber();
    void editableCellsArePaleYellow();
    void numbersShowTheirDecimals();
    void languageSwitchesTheCaptions_data();
    void languageSwitchesTheCaptions();
    void persistedPropertiesRoundTrip();
    void defaultsStoreNothing();
    void badStoredValuesAreLoggedAndSkipped();
    void lateBoundPropertiesByName();
    void lateBoundMethodsByName();
    void eventsHaveTheirParameters();
    void programIdAndWidgetNames();
};

void tst_zelGridList::sizeColZeroFillsOrKeepsOwnWidth_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<bool>("autoSize");
    QTest::addColumn<QString>("widths");

    // The grid is 6000 twips wide inside.
    QTest::newRow("name fills what the others leave") << "b240,s0,n1000" << true << "240,4760,1000";
    QTest::newRow("own width below the room") << "b240,s2000,n1000" << true << "240,4760,1000";
    QTest::newRow("too wide keeps its own width") << "b240,s3000,n3000" << true << "240,3000,3000";
    QTest::newRow("exactly the room keeps its own width")
        << "b240,s2760,n3000" << true << "240,2760,3000";
    QTest::newRow("too wide with no own width") << "b240,s0,n6000" << true << "240,0,6000";
    QTest::newRow("after two check columns") << "b240,b300,s0,n1000" << true << "240,300,4460,1000";
    QTest::newRow("booleans after it count") << "s0,b240,n1000" << true << "4760,240,1000";
    QTest::newRow("a single column is never sized") << "s1500" << true << "1500";
    QTest::newRow("only booleans") << "b240,b300" << true << "240,300";
    QTest::newRow("switched off") << "b240,s2000,n1000" << false << "240,2000,1000";
}

void tst_zelGridList::sizeColZeroFillsOrKeepsOwnWidth()
{
    QFETCH(QString, columns);
    QFETCH(bool, autoSize);
    QFETCH(QString, widths);
    zelTestScope scope;
    auto g = bareList();
    QCOMPARE(g->GridClientWidth(), 6000);
    g->SetAutoSizeColZero(autoSize);
    addColumns(*g, columns);
    g->SizeColZero();
    QCOMPARE(::widths(*g), widths);
    // Rows do not change the sizing.
    g->AddItem(QStringLiteral("x\ty\tz"), QStringLiteral("k"));
    QCOMPARE(::widths(*g), widths);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::sizeColZeroTracesItsValues()
{
    zelTestScope scope;
    auto g = bareList();
    addColumns(*g, QStringLiteral("b240,s0,n1000"));
    zelCaptureLogger::traces.clear();
    g->SizeColZero();
    QStringList got;
    for (const QVariantList &t : std::as_const(zelCaptureLogger::traces)) {
        QCOMPARE(t.value(2).toString(), QStringLiteral("zelGridList.SizeColZero"));
        got << t.value(3).toString() + t.value(4).toString();
    }
    QCOMPARE(got, (QStringList{"m_oColumns.Count: 3", "lSizeCol = 1", "Grd Width:6000",
                               "Col Width:0", "Sum Width:1240"}));

    // Rows change nothing that the sizing reads: they add no lines to the log.
    zelCaptureLogger::traces.clear();
    for (int i = 0; i < 3; ++i)
        g->AddItem(QStringLiteral("\tx\t1"), QString());
    QCOMPARE(zelCaptureLogger::traces.size(), 0);
    // A new width of the sizing column's object counts at the next row.
    g->Columns()->Item(2)->SetWidth(5000);
    g->AddItem(QStringLiteral("\ty\t2"), QString());
    QCOMPARE(g->ColumnWidth(1), 5000);
    QCOMPARE(zelCaptureLogger::traces.size(), 5);

    // A single column stops after the count.
    auto one = bareList();
    addColumns(*one, QStringLiteral("s0"));
    zelCaptureLogger::traces.clear();
    one->SizeColZero();
    QCOMPARE(zelCaptureLogger::traces.size(), 1);
    QCOMPARE(zelCaptureLogger::traces.first().value(3).toString(),
             QStringLiteral("m_oColumns.Count: "));
}

void tst_zelGridList::sizeColZeroFollowsTheControlsWidth()
{
    zelTestScope scope;
    auto g = bareList();
    addColumns(*g, QStringLiteral("s0,n1000"));
    QCOMPARE(g->ColumnWidth(0), 5000);
    g->resize(200, 300); // 3000 twips
    g->LayoutControl();
    QCOMPARE(g->ColumnWidth(0), 2000);
    // A border takes its width from the room.
    g->SetBorderStyle(1);
    QCOMPARE(g->ColumnWidth(0), g->GridClientWidth() - 1000);
    QVERIFY(g->GridClientWidth() < 3000);
    // The grid shows the width in pixels.
    QCOMPARE(g->Grid()->horizontalHeader()->sectionSize(1), qRound(1000 / 15.0));
}

void tst_zelGridList::checkBoxesSwitchTheFirstColumn_data()
{
    QTest::addColumn<QString>("switches"); // "1" on, "0" off, in order
    QTest::addColumn<QString>("captions");
    QTest::addColumn<bool>("newCollection");

    QTest::newRow("on") << "1"
                        << "|Name|Value" << true;
    QTest::newRow("on twice") << "11"
                              << "|Name|Value" << true;
    QTest::newRow("on then off") << "10"
                                 << "Name|Value" << true;
    QTest::newRow("off while off") << "0"
                                   << "Name|Value" << false;
    QTest::newRow("on, off, on") << "101"
                                 << "|Name|Value" << true;
}

void tst_zelGridList::checkBoxesSwitchTheFirstColumn()
{
    QFETCH(QString, switches);
    QFETCH(QString, captions);
    QFETCH(bool, newCollection);
    zelTestScope scope;
    auto g = makeList();
    const auto before = g->Columns();
    std::shared_ptr<zelGridColumns> afterFirst;
    for (const QChar s : switches) {
        g->SetCheckBoxes(s == QLatin1Char('1'));
        if (!afterFirst)
            afterFirst = g->Columns();
    }
    QCOMPARE(::captions(*g), captions);
    QCOMPARE(g->Columns() != before, newCollection);
    if (switches == QLatin1String("11"))
        QCOMPARE(g->Columns(), afterFirst); // the second switch changed nothing
    QCOMPARE(g->Grid()->model()->columnCount(), g->Columns()->Count());
    if (g->CheckBoxes()) {
        const auto check = g->Columns()->Item(1);
        QCOMPARE(check->DataType(), 11);
        QCOMPARE(check->Width(), 240);
        QCOMPARE(check->AllowEdit(), true);
        QCOMPARE(check->Alignment(), ZEL_ColumnAlignCenter);
        QCOMPARE(g->ColumnWidth(0), 240);
        QVERIFY(g->Grid()->model()->index(0, 0).data(Qt::CheckStateRole).isValid());
    }
    QCOMPARE(outOfStep(*g), QString());
}

void tst_zelGridList::addItemAtAPositionKeepsGridAndItemsInStep_data()
{
    QTest::addColumn<int>("lRow");
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("position"); // of the new row object; 0 = none
    QTest::addColumn<int>("moveErrors");

    QTest::newRow("append") << -1 << "ABCX" << 4 << 0;
    QTest::newRow("first") << 1 << "XABC" << 1 << 0;
    QTest::newRow("second") << 2 << "AXBC" << 2 << 0;
    QTest::newRow("before the last") << 3 << "ABXC" << 3 << 0;
    QTest::newRow("past the last appends") << 4 << "ABCX" << 4 << 0;
    QTest::newRow("far past the last appends") << 1000 << "ABCX" << 4 << 0;
    // Row 0 is the header: the row cannot go there and is lost.
    QTest::newRow("header row") << 0 << "ABC" << 0 << 1;
}

void tst_zelGridList::addItemAtAPositionKeepsGridAndItemsInStep()
{
    QFETCH(int, lRow);
    QFETCH(QString, order);
    QFETCH(int, position);
    QFETCH(int, moveErrors);
    zelTestScope scope;
    auto g = makeList();
    const auto row = g->AddItem(QStringLiteral("X\t9"), QStringLiteral("x"), QVariant(), lRow);
    QCOMPARE(::order(*g), order);
    QCOMPARE(outOfStep(*g), QString());
    if (position) {
        QVERIFY(row);
        QCOMPARE(g->Items()->Item(position), row);
        QCOMPARE(g->RowData(position), row);
        QCOMPARE(g->Items()->IndexOfKey(QStringLiteral("x")), position);
        QCOMPARE(g->Grid()->model()->index(position - 1, 0).data().toString(), QStringLiteral("X"));
    } else {
        QVERIFY(!row);
    }
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridRows.Move")), moveErrors);
}

void tst_zelGridList::addItemWithATakenKeyChangesNothing()
{
    zelTestScope scope;
    auto g = makeList();
    zelGridEvents ev;
    ev.watch(*g);
    QSignalSpy rowsInserted(g->Grid()->model(), &QAbstractItemModel::rowsInserted);
    QVERIFY(!g->AddItem(QStringLiteral("dup\t0"), QStringLiteral("B")));
    QVERIFY(!g->AddItemEx(QStringLiteral("dup\t0"), QStringLiteral("b"), QVariant(), 1, true));
    QCOMPARE(rowsInserted.count(), 0);
    QCOMPARE(order(*g), QStringLiteral("ABC"));
    QCOMPARE(g->Items()->Item(QStringLiteral("b"))->Data(), QStringLiteral("B\t2"));
    QCOMPARE(outOfStep(*g), QString());
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), QString());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::firstRowBecomesCurrentWithoutEvents_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("keyed") << "k";
    QTest::newRow("without key") << "";
}

void tst_zelGridList::firstRowBecomesCurrentWithoutEvents()
{
    QFETCH(QString, key);
    zelTestScope scope;
    zelGridList g;
    zelGridEvents ev;
    ev.watch(g);
    g.AddColumn(QStringLiteral("Name"));
    QCOMPARE(g.CurrentRow(), 0);
    g.AddItem(QStringLiteral("first"), key);
    QCOMPARE(g.CurrentRow(), 1);
    g.AddItem(QStringLiteral("second"), QString(), QVariant(), 1);
    // The current row follows its row; no later row is made current.
    QCOMPARE(g.RowData(g.CurrentRow())->Data(), QStringLiteral("first"));
    QCoreApplication::processEvents();
    QCOMPARE(ev.joined(), QString());
}

void tst_zelGridList::addItemExChecksTheRow()
{
    zelTestScope scope;
    auto g = makeList(0);
    g->SetCheckBoxes(true);
    const auto on =
        g->AddItemEx(QStringLiteral("\tA\t1"), QStringLiteral("a"), QVariant(), -1, true);
    const auto off = g->AddItemEx(QStringLiteral("\tB\t2"), QStringLiteral("b"));
    QCoreApplication::processEvents();
    QCOMPARE(on->Checked(), true);
    QCOMPARE(off->Checked(), false);
    const QAbstractItemModel *m = g->Grid()->model();
    QCOMPARE(m->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QCOMPARE(m->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QVERIFY(g->CheckItemByKey(QStringLiteral("B"), true));
    QCOMPARE(m->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(g->CheckItem(1, false));
    QCOMPARE(on->Checked(), false);
    QVERIFY(!g->CheckItem(3, true));
    QVERIFY(!g->CheckItemByKey(QStringLiteral("zz"), true));
    // Without check boxes the mark is not set.
    auto plain = makeList(0);
    QCOMPARE(plain->AddItemEx(QStringLiteral("A"), QString(), QVariant(), -1, true)->Checked(),
             false);
}

void tst_zelGridList::removeAndClearKeepTheGridInStep()
{
    zelTestScope scope;
    auto g = makeList(5);
    QVERIFY(g->RemoveItem(2));
    QCOMPARE(order(*g), QStringLiteral("ACDE"));
    QVERIFY(g->RemoveItemByKey(QStringLiteral("E")));
    QCOMPARE(order(*g), QStringLiteral("ACD"));
    QVERIFY(!g->RemoveItem(0));
    QVERIFY(!g->RemoveItem(4));
    QVERIFY(!g->RemoveItemByKey(QStringLiteral("b")));
    QVERIFY(!g->RemoveItemByKey(QString()));
    QCOMPARE(outOfStep(*g), QString());
    // Removing the current row leaves a current row in the list.
    g->SelectItem(QStringLiteral("d"));
    QVERIFY(g->RemoveItem(3));
    QVERIFY(g->CurrentRow() >= 1 && g->CurrentRow() <= 2);
    QCOMPARE(g->Clear().toBool(), true);
    QCOMPARE(g->Items()->Count(), 0);
    QCOMPARE(outOfStep(*g), QString());
    QCOMPARE(g->CurrentRow(), 0);
    QVERIFY(g->AddItem(QStringLiteral("N\t1"), QStringLiteral("a")));
    QCOMPARE(outOfStep(*g), QString());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::hostChangingItemsDirectlyIsShownAgain()
{
    zelTestScope scope;
    auto g = makeList();
    g->Items()->Remove(1);
    g->Items()->Create(QStringLiteral("z"), QStringLiteral("Z\t26"));
    g->Items()->Create(QStringLiteral("y"), QStringLiteral("Y\t25"));
    // Reading a row the grid still shows never fails.
    const QAbstractItemModel *m = g->Grid()->model();
    for (int r = 0; r < m->rowCount(); ++r)
        for (int c = 0; c < m->columnCount(); ++c)
            m->index(r, c).data();
    QCOMPARE(g->Refresh().toBool(), true);
    QCOMPARE(outOfStep(*g), QString());
    g->Items()->Clear();
    g->AddItem(QStringLiteral("Q\t1"), QStringLiteral("q"));
    QCOMPARE(outOfStep(*g), QString());
    g->Items()->Create(QString(), QStringLiteral("R\t2"));
    QVERIFY(g->RemoveItem(1));
    QCOMPARE(order(*g), QStringLiteral("R"));
    QCOMPARE(outOfStep(*g), QString());
}

void tst_zelGridList::columnsClearedWhileRowsExist()
{
    zelTestScope scope;
    auto g = makeList();
    g->Columns()->Clear();
    const QAbstractItemModel *m = g->Grid()->model();
    for (int r = 0; r < m->rowCount(); ++r)
        for (int c = 0; c < m->columnCount(); ++c)
            for (int role : {int(Qt::DisplayRole), int(Qt::BackgroundRole), int(Qt::CheckStateRole),
                             int(Qt::TextAlignmentRole)})
                m->index(r, c).data(role);
    QVERIFY(g->AddItem(QStringLiteral("D\t4"), QStringLiteral("d")));
    QCoreApplication::processEvents();
    QCOMPARE(m->rowCount(), 4);
    g->SizeColZero();
    g->RefreshColumns();
    QCOMPARE(m->columnCount(), 0);
    QCOMPARE(m->rowCount(), g->Items()->Count());
    QVERIFY(g->AddItem(QStringLiteral("E"), QStringLiteral("e"), QVariant(), 2));
    QCoreApplication::processEvents();
    QCOMPARE(m->rowCount(), 5);
    QCOMPARE(g->Items()->Item(2)->Data(), QStringLiteral("E"));
    g->AddColumn(QStringLiteral("Again"));
    QCOMPARE(outOfStep(*g), QString());
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::setItemReplacesTheText_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("lRow");
    QTest::addColumn<int>("changed"); // row changed; 0 = none
    QTest::newRow("by row") << "" << 2 << 2;
    QTest::newRow("row wins over key") << "c" << 1 << 1;
    QTest::newRow("by key") << "C" << -1 << 3;
    QTest::newRow("row past the end, by key") << "a" << 9 << 1;
    QTest::newRow("neither") << "zz" << -1 << 0;
}

void tst_zelGridList::setItemReplacesTheText()
{
    QFETCH(QString, key);
    QFETCH(int, lRow);
    QFETCH(int, changed);
    zelTestScope scope;
    auto g = makeList();
    const auto row = g->SetItem(QStringLiteral("N\t7"), key, QStringLiteral("tag"), lRow);
    QCOMPARE(bool(row), changed != 0);
    for (int r = 1; r <= 3; ++r) {
        const bool isChanged = r == changed;
        QCOMPARE(g->Items()->Item(r)->Cell(0).toString(),
                 isChanged ? QStringLiteral("N") : QString(QChar(u'A' + r - 1)));
        QCOMPARE(g->Items()->Item(r)->Tag().toString(),
                 isChanged ? QStringLiteral("tag") : QString());
    }
    QCOMPARE(outOfStep(*g), QString());
    // Keys stay with their rows.
    QCOMPARE(g->Items()->IndexOfKey(QStringLiteral("b")), 2);
}

void tst_zelGridList::rowColourByRowAndByKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("lRow");
    QTest::addColumn<int>("coloured");
    QTest::newRow("row") << "" << 2 << 2;
    QTest::newRow("missing row") << "" << 4 << 0;
    QTest::newRow("header row") << "" << 0 << 0;
    QTest::newRow("negative row") << "" << -1 << 0;
    QTest::newRow("key") << "C" << 0 << 3;
    QTest::newRow("missing key") << "zz" << 0 << 0;
}

void tst_zelGridList::rowColourByRowAndByKey()
{
    QFETCH(QString, key);
    QFETCH(int, lRow);
    QFETCH(int, coloured);
    zelTestScope scope;
    auto g = makeList();
    const quint32 red = 0x0000FF;
    const bool answer = key.isEmpty() ? g->SetItemColor(lRow, red) : g->SetItemColorByKey(key, red);
    QCOMPARE(answer, coloured != 0);
    const QAbstractItemModel *m = g->Grid()->model();
    for (int r = 1; r <= 3; ++r) {
        QCOMPARE(g->Items()->Item(r)->RowColor(), r == coloured ? red : 0x80000005u);
        // Both cells, editable or not, show the row's colour.
        for (int c = 0; c < 2; ++c) {
            const QVariant b = m->index(r - 1, c).data(Qt::BackgroundRole);
            if (r == coloured)
                QCOMPARE(b.value<QBrush>().color(), QColor(255, 0, 0));
            else
                QVERIFY(b.value<QBrush>().color() != QColor(255, 0, 0));
        }
    }
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::colourCellsShowTheirNumber_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QColor>("colour"); // invalid: no colour
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("errors");

    QTest::newRow("red") << "255" << QColor(255, 0, 0) << "" << 0;
    QTest::newRow("blue") << "16711680" << QColor(0, 0, 255) << "" << 0;
    QTest::newRow("hexadecimal green") << "&HFF00" << QColor(0, 255, 0) << "" << 0;
    QTest::newRow("not a number") << "red" << QColor() << "red" << 1;
    QTest::newRow("empty") << "" << QColor() << "" << 1;
}

void tst_zelGridList::colourCellsShowTheirNumber()
{
    QFETCH(QString, cell);
    QFETCH(QColor, colour);
    QFETCH(QString, shown);
    QFETCH(int, errors);
    zelTestScope scope;
    zelGridList g;
    g.AddColumn(QStringLiteral("Class"));
    g.AddColumnEx(QStringLiteral("Colour"), ZEL_ColumnAlignLeft, 36);
    const auto row = g.AddItem(QStringLiteral("Roads\t") + cell, QStringLiteral("r"));
    QVERIFY(row);
    // The row keeps the number; the grid shows only the colour.
    QCOMPARE(row->Data(), QStringLiteral("Roads\t") + cell);
    const QModelIndex i = g.Grid()->model()->index(0, 1);
    QCOMPARE(i.data().toString(), shown);
    const QVariant b = i.data(Qt::BackgroundRole);
    if (colour.isValid())
        QCOMPARE(b.value<QBrush>().color(), colour);
    else
        QVERIFY(!b.isValid());
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.SetColorCells")), errors);
    if (errors)
        QCOMPARE(zelCaptureLogger::errors.first().value(3).toInt(), 13);
    QCOMPARE(g.Items()->Count(), 1);
    // New text colours the cell anew.
    g.SetItem(QStringLiteral("Roads\t65280"), QStringLiteral("r"));
    QCOMPARE(i.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(0, 255, 0));
    // Rebuilding the columns colours every row again.
    g.RefreshColumns();
    QCOMPARE(g.Grid()->model()->index(0, 1).data(Qt::BackgroundRole).value<QBrush>().color(),
             QColor(0, 255, 0));
}

void tst_zelGridList::editableCellsArePaleYellow()
{
    zelTestScope scope;
    auto g = makeList();
    const QAbstractItemModel *m = g->Grid()->model();
    const QColor yellow(255, 255, 192);
    QCOMPARE(m->index(0, 0).data(Qt::BackgroundRole).value<QBrush>().color(), yellow);
    QVERIFY(!m->index(0, 1).data(Qt::BackgroundRole).isValid());
    // Selected rows of a multi-selection show the selection instead.
    g->SetMultiSelect(true);
    g->SelectItem(QStringLiteral("b"));
    QVERIFY(g->Items()->Item(2)->Selected());
    QVERIFY(!m->index(1, 0).data(Qt::BackgroundRole).isValid());
    QCOMPARE(m->index(2, 0).data(Qt::BackgroundRole).value<QBrush>().color(), yellow);
    QCOMPARE(m->flags(m->index(0, 0)) & Qt::ItemIsEditable, Qt::ItemIsEditable);
    QCOMPARE(m->flags(m->index(0, 1)) & Qt::ItemIsEditable, Qt::NoItemFlags);
}

void tst_zelGridList::numbersShowTheirDecimals()
{
    zelTestScope scope;
    zelGridList g;
    g.AddColumn(QStringLiteral("Name"));
    g.AddColumnEx(QStringLiteral("Area"), ZEL_ColumnAlignRight, 5, 2);
    g.AddColumnEx(QStringLiteral("Note"), ZEL_Controls_ColumnAlign(0), 8);
    g.AddItem(QStringLiteral("A\t12.5\t42"), QString());
    g.AddItem(QStringLiteral("B\tn/a\ttext"), QString());
    QCoreApplication::processEvents();
    const QAbstractItemModel *m = g.Grid()->model();
    QCOMPARE(m->index(0, 1).data().toString(), QStringLiteral("12.50"));
    QCOMPARE(m->index(0, 1).data(Qt::EditRole).toString(), QStringLiteral("12.5"));
    QCOMPARE(m->index(1, 1).data().toString(), QStringLiteral("n/a"));
    QCOMPARE(m->index(0, 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
             Qt::AlignRight | Qt::AlignVCenter);
    // No alignment of its own: numbers right, text left.
    QCOMPARE(m->index(0, 2).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignRight,
             Qt::AlignRight);
    QCOMPARE(m->index(1, 2).data(Qt::TextAlignmentRole).value<Qt::Alignment>() & Qt::AlignLeft,
             Qt::AlignLeft);
    QCOMPARE(m->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Area"));
}

void tst_zelGridList::languageSwitchesTheCaptions_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("add");
    QTest::addColumn<QString>("barRemove");

    QTest::newRow("default") << QStringList{} << "English"
                             << "&New"
                             << "Remove";
    QTest::newRow("german") << QStringList{"German"} << "German"
                            << "&Neu"
                            << "Abbruch";
    QTest::newRow("deutsch") << QStringList{"deutsch"} << "deutsch"
                             << "&Neu"
                             << "Abbruch";
    QTest::newRow("case only keeps spelling") << QStringList{"German", "GERMAN"} << "German"
                                              << "&Neu"
                                              << "Abbruch";
    QTest::newRow("empty is english") << QStringList{"German", ""} << "English"
                                      << "&New"
                                      << "Remove";
    QTest::newRow("other keeps captions") << QStringList{"German", "french"} << "french"
                                          << "&Neu"
                                          << "Abbruch";
}

void tst_zelGridList::languageSwitchesTheCaptions()
{
    QFETCH(QStringList, languages);
    QFETCH(QString, stored);
    QFETCH(QString, add);
    QFETCH(QString, barRemove);
    zelTestScope scope;
    zelGridList g;
    for (const QString &l : languages)
        g.SetLanguage(l);
    QCOMPARE(g.Language(), stored);
    QCOMPARE(
        g.findChild<QPushButton *>(QStringLiteral("cmdAdd"), Qt::FindDirectChildrenOnly)->text(),
        add);
    QCOMPARE(g.findChild<QWidget *>(QStringLiteral("mpbProps"))
                 ->findChild<QPushButton *>(QStringLiteral("cmdRemove"))
                 ->text(),
             barRemove);
}

void tst_zelGridList::persistedPropertiesRoundTrip()
{
    zelTestScope scope;
    zelGridList g;
    g.AddColumn(QStringLiteral("Name"));
    g.SetBorderStyle(0);
    g.SetMargin(60);
    g.SetTopMargin(480);
    g.SetButtonsVisible(12);
    g.SetButtonsEnabled(8);
    g.SetEnabled(false);
    g.SetHighlightSelection(1);
    g.SetCaption(QStringLiteral("Layers"));
    g.SetButtonsOnSide(true);
    g.SetAllowRepeatClicks(true);
    g.SetSelectionCol(1);
    g.SetCheckBoxes(true);
    g.SetEditOnFocus(true);
    g.SetAutoSizeColZero(false);
    g.SetLanguage(QStringLiteral("German"));
    g.SetMultiSelect(true);
    zelMemoryPropertyBag bag;
    g.WriteProperties(bag);
    QCOMPARE(bag.Count(), 14);
    QVERIFY(!bag.Contains(QStringLiteral("Language")));
    QVERIFY(!bag.Contains(QStringLiteral("MultiSelect")));
    QCOMPARE(bag.Value(QStringLiteral("Caption")).toString(), QStringLiteral("Layers"));
    QCOMPARE(bag.Value(QStringLiteral("HighlightSelection")).toInt(), 1);

    zelGridList back;
    back.ReadProperties(bag);
    QCOMPARE(back.BorderStyle(), 0);
    QCOMPARE(back.Margin(), 60);
    QCOMPARE(back.TopMargin(), 480);
    QCOMPARE(back.ButtonsVisible(), 12);
    QCOMPARE(back.ButtonsEnabled(), 8);
    QCOMPARE(back.Enabled(), false);
    QCOMPARE(back.HighlightSelection(), ZEL_Highlight_Always);
    QCOMPARE(back.Caption(), QStringLiteral("Layers"));
    QCOMPARE(back.ButtonsOnSide(), true);
    QCOMPARE(back.AllowRepeatClicks(), true);
    QCOMPARE(back.SelectionCol(), 1);
    QCOMPARE(back.CheckBoxes(), true);
    QCOMPARE(back.Columns()->Count(), 1); // the check column
    QCOMPARE(back.EditOnFocus(), true);
    QCOMPARE(back.AutoSizeColZero(), false);
    QCOMPARE(back.Language(), QStringLiteral("English"));
    QCOMPARE(back.MultiSelect(), false);
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::defaultsStoreNothing()
{
    zelTestScope scope;
    zelGridList g;
    QStringList marked;
    connect(&g, &zelGridList::PropertyChanged, [&](const QString &n) { marked << n; });
    g.InitProperties();
    zelMemoryPropertyBag bag;
    g.WriteProperties(bag);
    QCOMPARE(bag.Count(), 0);
    QVERIFY(marked.contains(QStringLiteral("Margin")));
    QVERIFY(!marked.contains(QStringLiteral("Language")));
    g.SetSelectionCol(3);
    QCOMPARE(marked.last(), QStringLiteral("SelectionCol"));
}

void tst_zelGridList::badStoredValuesAreLoggedAndSkipped()
{
    zelTestScope scope;
    zelMemoryPropertyBag bag;
    bag.SetValue(QStringLiteral("Margin"), QStringLiteral("wide"));
    bag.SetValue(QStringLiteral("HighlightSelection"), 7);
    bag.SetValue(QStringLiteral("BorderStyle"), 5);
    bag.SetValue(QStringLiteral("CheckBoxes"), QStringLiteral("maybe"));
    bag.SetValue(QStringLiteral("Caption"), QStringLiteral("Still read"));
    bag.SetValue(QStringLiteral("TopMargin"), 300);
    zelGridList g;
    g.ReadProperties(bag);
    QCOMPARE(g.Margin(), 120);
    QCOMPARE(g.HighlightSelection(), ZEL_Highlight_WithFocus);
    QCOMPARE(g.BorderStyle(), 1);
    QCOMPARE(g.CheckBoxes(), false);
    QCOMPARE(g.Caption(), QStringLiteral("Still read"));
    QCOMPARE(g.TopMargin(), 300);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.UserControl_ReadProperties")), 2);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.HighlightSelection Let")), 1);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.BorderStyle Let")), 1);
    // A wrong type by name is refused the same way.
    zel::SetProperty(&g, QStringLiteral("Margin"), QStringLiteral("x"));
    QCOMPARE(g.Margin(), 120);
    QCOMPARE(zelLoggedErrors(QStringLiteral("zelGridList.Margin Let")), 1);
}

void tst_zelGridList::lateBoundPropertiesByName()
{
    zelTestScope scope;
    zelGridList g;
    g.AddColumn(QStringLiteral("Name"));
    const QList<QPair<const char *, QVariant>> values{
        {"Language", QStringLiteral("German")},
        {"Caption", QStringLiteral("Layers")},
        {"AutoSizeColZero", false},
        {"CheckBoxes", true},
        {"Enabled", false},
        {"SelectionCol", 1},
        {"AllowRepeatClicks", true},
        {"ButtonsOnSide", true},
        {"ButtonsVisible", 12},
        {"ButtonsEnabled", 8},
        {"HighlightSelection", 1},
        {"BorderStyle", 0},
        {"TopMargin", 300},
        {"Margin", 60},
        {"MultiSelect", true},
        {"EditOnFocus", true},
    };
    for (const auto &[name, value] : values) {
        QVERIFY2(zel::SetProperty(&g, QString::fromLatin1(name), value), name);
        QCOMPARE(zel::GetProperty(&g, QString::fromLatin1(name)), value);
    }
    for (const char *name : {"Columns", "Items", "SelectedItems"}) {
        const QVariant v = zel::GetProperty(&g, QString::fromLatin1(name));
        QVERIFY2(qvariant_cast<QObject *>(v), name);
        QVERIFY(!zel::SetProperty(&g, QString::fromLatin1(name), v));
    }
    QCOMPARE(zelLoggedErrors(), 0);
}

void tst_zelGridList::lateBoundMethodsByName()
{
    zelTestScope scope;
    zelGridList g;
    auto call = [&](const char *name, const QVariantList &args) {
        bool ok = false;
        const QVariant r = zel::CallByName(&g, QString::fromLatin1(name), args, &ok);
        if (!ok)
            qWarning("not called: %s", name);
        return ok ? r : QVariant(QStringLiteral("<not called>"));
    };
    QVERIFY(qvariant_cast<QObject *>(call("AddColumn", {QStringLiteral("Name")})));
    QVERIFY(qvariant_cast<QObject *>(
        call("AddColumnEx", {QStringLiteral("Value"), int(ZEL_ColumnAlignRight), 5, 2, 1200})));
    QVERIFY(
        qvariant_cast<QObject *>(call("AddItem", {QStringLiteral("A\t1"), QStringLiteral("a")})));
    QVERIFY(qvariant_cast<QObject *>(
        call("AddItemEx", {QStringLiteral("B\t2"), QStringLiteral("b"), QVariant(), -1, true})));
    QVERIFY(
        qvariant_cast<QObject *>(call("SetItem", {QStringLiteral("B\t3"), QStringLiteral("b")})));
    QCOMPARE(call("SetItemColor", {1, 255}).toBool(), true);
    QCOMPARE(call("SetItemColorByKey", {QStringLiteral("b"), 255}).toBool(), true);
    QCOMPARE(call("CheckItem", {1, true}).toBool(), true);
    QCOMPARE(call("CheckItemByKey", {QStringLiteral("b"), true}).toBool(), true);
    QCOMPARE(call("SelectItem", {QStringLiteral("b")}).toBool(), true);
    QCOMPARE(g.CurrentRow(), 2);
    QObject *row = qvariant_cast<QObject *>(call("RowData", {2}));
    QVERIFY(row);
    QCOMPARE(zel::GetProperty(row, QStringLiteral("Data")).toString(), QStringLiteral("B\t3"));
    QCOMPARE(call("Refresh", {}).toBool(), true);
    call("RefreshColumns", {});
    call("ChangeEnabledButtons", {int(ZEL_PrpButton_Remove), false});
    QCOMPARE(g.ButtonsEnabled(), 11);
    call("ChangeVisibleButtons", {int(ZEL_PrpButton_Option0), true});
    QCOMPARE(g.ButtonsVisible(), 31);
    call("SetOptionButtonCaption", {0, QStringLiteral("Import")});
    QCOMPARE(call("OptionButtonCaption", {0}).toString(), QStringLiteral("Import"));
    QCOMPARE(call("LoadOptionButtonPicture", {0, QVariant()}).toBool(), false);
    call("FocusOnButton", {int(ZEL_PrpButton_Add)});
    QCOMPARE(call("RemoveItem", {1}).toBool(), true);
    QCOMPARE(call("RemoveItemByKey", {QStringLiteral("B")}).toBool(), true);
    call("AddItem", {QStringLiteral("C\t1"), QStringLiteral("c")});
    QCOMPARE(call("Clear", {}).toBool(), true);
    QCOMPARE(g.Items()->Count(), 0);
    call("InitProperties", {});
    QCOMPARE(g.ButtonsVisible(), 15);
}

void tst_zelGridList::eventsHaveTheirParameters()
{
    const QMetaObject *mo = &zelGridList::staticMetaObject;
    // Name, then parameter names; a trailing "&" marks a by-reference one.
    const QStringList expected{
        "NewRow lRow",
        "Delete lRow sKey",
        "RowMoved lOldRow lNewRow&",
        "Edit lRow",
        "EditCell lRow lColumn sText",
        "EditCellByRef lRow lColumn sText&",
        "SelectedItem sKey lRow",
        "DblClick",
        "BeforeEdit lRow lColumn bCancel&",
        "SelectionChanged",
        "ItemChecked lRow oRow",
        "OptionClicked lIndex",
    };
    for (const QString &e : expected) {
        const QStringList parts = e.split(QLatin1Char(' '));
        bool found = false;
        for (int i = mo->methodOffset(); i < mo->methodCount(); ++i) {
            const QMetaMethod m = mo->method(i);
            if (m.methodType() != QMetaMethod::Signal || QString::fromLatin1(m.name()) != parts[0])
                continue;
            found = true;
            QCOMPARE(m.parameterCount(), parts.size() - 1);
            for (int p = 0; p < m.parameterCount(); ++p) {
                QString name = QString::fromLatin1(m.parameterNames().at(p));
                if (m.parameterTypes().at(p).endsWith('&') &&
                    !m.parameterTypes().at(p).startsWith("const"))
                    name += QLatin1Char('&');
                QCOMPARE(name, parts[p + 1]);
            }
        }
        QVERIFY2(found, qPrintable(e));
    }
}

void tst_zelGridList::programIdAndWidgetNames()
{
    zelTestScope scope;
    std::unique_ptr<QObject> o(zel::CreateObject(QStringLiteral("zelCtrl.zelGridList")));
    QVERIFY(qobject_cast<zelGridList *>(o.get()));
    for (const char *name : {"vfgItems", "cmdAdd", "cmdDelete", "cmdEdit", "cmdUp", "cmdDown",
                             "mpbProps", "lblCaption"})
        QVERIFY2(o->findChild<QWidget *>(QString::fromLatin1(name), Qt::FindDirectChildrenOnly),
                 name);
    QCOMPARE(o->findChild<QWidget *>(QStringLiteral("mpbProps"))->metaObject()->className(),
             "zelPrpButtons");
}

QTEST_MAIN(tst_zelGridList)
#include "tst_zelGridList.moc"
