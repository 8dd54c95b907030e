// The selection rules shared by the record lists, on a widget stand-in that
// notifies as a real one does: only when its selection really changes.

#include "lists/zelRecordSelection.h"

#include <QTest>

namespace {

struct Rows : zelRecordSelection::View
{
    QStringList keys{"a", "b", "c"};
    QList<qint32> selected;
    QList<bool> events;
    zelRecordSelection *sel = nullptr;

    qint32 FindRow(const QString &key) const override { return qint32(keys.indexOf(key) + 1); }
    QList<qint32> SelectedRows() const override { return selected; }
    void SelectRow(qint32 row) override
    {
        if (selected == QList<qint32>{row})
            return;
        selected = {row};
        sel->SelectionChanged();
    }
    void UnselectRow(qint32 row) override
    {
        if (selected.removeAll(row))
            sel->SelectionChanged();
    }
    std::shared_ptr<zelComboRecord> RecordOfRow(qint32) const override { return {}; }
    void RaiseChanged(bool bUserClick) override { events << bUserClick; }
};

} // namespace

class tst_Selection : public QObject
{
    Q_OBJECT
private slots:
    void events_data()
    {
        QTest::addColumn<QList<qint32>>("before");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QList<bool>>("events");
        QTest::addColumn<QList<qint32>>("after");
        QTest::newRow("known") << QList<qint32>{} << "b" << true << QList<bool>{false}
                               << QList<qint32>{2};
        QTest::newRow("already selected")
            << QList<qint32>{2} << "b" << true << QList<bool>{} << QList<qint32>{2};
        QTest::newRow("case differs")
            << QList<qint32>{} << "B" << false << QList<bool>{false} << QList<qint32>{};
        QTest::newRow("unknown, none selected")
            << QList<qint32>{} << "x" << false << QList<bool>{false} << QList<qint32>{};
        QTest::newRow("unknown, two selected")
            << QList<qint32>{1, 3} << "" << false << QList<bool>{false, false} << QList<qint32>{};
    }
    void events()
    {
        QFETCH(QList<qint32>, before);
        QFETCH(QString, key);
        QFETCH(bool, found);
        QFETCH(QList<bool>, events);
        QFETCH(QList<qint32>, after);
        Rows rows;
        zelRecordSelection sel(rows, false);
        rows.sel = &sel;
        if (before.size() == 1)
            rows.SelectRow(before.first());
        rows.selected = before;
        rows.events.clear();
        QCOMPARE(sel.SelectItem(key), found);
        QCOMPARE(rows.events, events);
        QCOMPARE(rows.selected, after);
        QCOMPARE(sel.LastRow(), after.value(0));
        // The user's click afterwards is a click.
        rows.events.clear();
        rows.SelectRow(rows.selected.value(0) % 3 + 1);
        QCOMPARE(rows.events, QList<bool>{true});
    }

    void clearRaisesNothing()
    {
        Rows rows;
        zelRecordSelection sel(rows, true);
        rows.sel = &sel;
        rows.SelectRow(1);
        rows.events.clear();
        sel.Clear([&] { rows.UnselectRow(1); });
        QVERIFY(rows.events.isEmpty());
        QCOMPARE(sel.LastRow(), 0);
        QVERIFY(!sel.SelectedRecord());
    }

    void stuckWidgetDoesNotHang()
    {
        struct Stuck : Rows
        {
            void UnselectRow(qint32) override {}
        } rows;
        zelRecordSelection sel(rows, true);
        rows.sel = &sel;
        rows.selected = {1};
        QVERIFY(!sel.SelectItem("x"));
        QVERIFY(sel.UserClick());
    }
};

QTEST_GUILESS_MAIN(tst_Selection)
#include "tst_selection.moc"
