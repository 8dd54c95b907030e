// The range editor as a host and a user drive it: splits that keep the
// ranges contiguous, insert and remove with their open ends, captions, the
// interpolation box, every refusal word for word, and undo and redo.

#include "core/zelMissing.h"
#include "legend/zelRangeEditor.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTableView>

#include <cmath>
#include <limits>

namespace {

using Bounds = QList<double>;

// The bounds as the grid shows them, "Min-5.00|5.00-Max"; a break in the
// chain of bounds, an open end inside or a wrong Index shows as "broken at n".
QString layout(const zelRangeEditor &e)
{
    QStringList rows;
    for (qint32 i = 1; i <= e.Count(); ++i) {
        const auto r = e.Item(i);
        if (r->Index() != i || (i > 1 && e.Item(i - 1)->Max() != r->Min()) ||
            r->IsMin() != (i == 1) || (r->IsMax() && i != e.Count()))
            return QStringLiteral("broken at %1").arg(i);
        rows << e.CellText(i - 1, 0) + QLatin1Char('-') + e.CellText(i - 1, 1);
    }
    return rows.join(QLatin1Char('|'));
}

// Ranges from the bounds, each range's label its position at creation.
void fill(zelRangeEditor &e, const Bounds &bounds)
{
    for (double b : bounds)
        e.Create(b, b, false, 0x10 * quint32(b), QString::number(b));
}

void click(zelRangeEditor &e, const QByteArray &button, int row)
{
    e.Grid()->setCurrentIndex(e.Grid()->model()->index(row, 0));
    e.findChild<QAbstractButton *>(QString::fromLatin1(button))->click();
}

} // namespace

class tst_RangeEditor : public QObject
{
    Q_OBJECT

private slots:
    void itemSentinelsAndCopies()
    {
        zelRangeItem item;
        QCOMPARE(item.Key(), QStringLiteral("0K"));
        QCOMPARE(item.Min(), 0.0);
        QCOMPARE(item.Label(), QString());
        item.SetMin(5);
        item.SetMax(7);
        item.SetIsMin(true);
        item.SetIsMax(true);
        QCOMPARE(item.Min(), -9999999999.0);
        QCOMPARE(item.Max(), 999999999.0);
        item.SetValue(zel::Missing());
        const auto clone = item.Clone();
        item.SetIsMin(false);
        QCOMPARE(item.Min(), 5.0);
        // The copy took the sentinels as its bounds, and 0 for the missing value.
        clone->SetIsMax(false);
        QCOMPARE(clone->Max(), 999999999.0);
        QCOMPARE(clone->Value(), QVariant(qint32(0)));
        zelRangeEditor e;
        const auto made = e.Create(3);
        QCOMPARE(made->Clone()->Key(), made->Key());
        QVERIFY(zel::IsMissing(made->Value()));
    }

    void splits_data()
    {
        zelColumns<Bounds, QString>({"bounds", "layout"});
        zelRow("one range", Bounds{10}, QStringLiteral("Min-Max"));
        zelRow("below", Bounds{10, 5}, QStringLiteral("Min-5.00|5.00-Max"));
        zelRow("ascending", Bounds{0, 1, 2, 3},
               QStringLiteral("Min-1.00|1.00-2.00|2.00-3.00|3.00-Max"));
        zelRow("inside", Bounds{0, 5, 20, 10},
               QStringLiteral("Min-5.00|5.00-10.00|10.00-20.00|20.00-Max"));
        zelRow("equal bound", Bounds{0, 5, 20, 5},
               QStringLiteral("Min-5.00|5.00-5.00|5.00-20.00|20.00-Max"));
        zelRow("below the first", Bounds{0, 5, -3},
               QStringLiteral("Min--3.00|-3.00-5.00|5.00-Max"));
    }
    void splits()
    {
        QFETCH(Bounds, bounds);
        zelRangeEditor e;
        fill(e, bounds);
        QTEST(layout(e), "layout");
        // The range that was split keeps the value it was given.
        const auto upper = e.Create(bounds.last() + 0.5, QStringLiteral("new"));
        QCOMPARE(upper->Value(), QVariant(QStringLiteral("new")));
        QCOMPARE(e.Item(upper->Index() + 1)->Min(), bounds.last() + 0.5);
    }

    void manyBoundsInAnyOrder()
    {
        zelRangeEditor e;
        QList<double> bounds;
        QRandomGenerator rng(11);
        e.BeginUpdate();
        for (int i = 0; i < 10000; ++i) {
            bounds << double(rng.bounded(3000)) / 4;
            e.Create(bounds.last());
        }
        // The grid hears of it all at once.
        QCOMPARE(e.Grid()->model()->rowCount(), 0);
        e.EndUpdate();
        QCOMPARE(e.Grid()->model()->rowCount(), 10000);
        QVERIFY(!layout(e).startsWith(QLatin1String("broken")));
        // The first bound is the one range's hidden upper end; the others split.
        bounds.removeFirst();
        std::sort(bounds.begin(), bounds.end());
        for (int i = 0; i < bounds.size(); ++i)
            QCOMPARE(e.Item(i + 1)->Max(), bounds.at(i));
    }

    void badCreates_data()
    {
        QTest::addColumn<double>("bound");
        QTest::newRow("NaN") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity();
        QTest::newRow("minus infinity") << -std::numeric_limits<double>::infinity();
    }
    void badCreates()
    {
        QFETCH(double, bound);
        zelTestScope scope;
        zelRangeEditor e;
        fill(e, {0, 5});
        QVERIFY(!e.Create(bound));
        QCOMPARE(zelLoggedErrors(QStringLiteral("zelRangeEditor.Create")), 1);
        QCOMPARE(layout(e), QStringLiteral("Min-5.00|5.00-Max"));
    }

    void buttons_data()
    {
        zelColumns<QByteArray, int, QString, QString>({"button", "row", "layout", "labels"});
        const QString before = QStringLiteral("Min-1.00|1.00-2.00|2.00-Max");
        zelRow("insert after the first", QByteArray("cmdInsert"), 0,
               QStringLiteral("Min-1.00|1.00-1.00|1.00-2.00|2.00-Max"), QStringLiteral("|1|2|0"));
        zelRow("insert after a middle one", QByteArray("cmdInsert"), 1,
               QStringLiteral("Min-1.00|1.00-2.00|2.00-2.00|2.00-Max"), QStringLiteral("1||2|0"));
        zelRow("no insert after the last", QByteArray("cmdInsert"), 2, before,
               QStringLiteral("1|2|0"));
        zelRow("the middle one removed", QByteArray("cmdRemove"), 1,
               QStringLiteral("Min-2.00|2.00-Max"), QStringLiteral("1|0"));
        zelRow("the first stays", QByteArray("cmdRemove"), 0, before, QStringLiteral("1|2|0"));
        zelRow("the last stays", QByteArray("cmdRemove"), 2, before, QStringLiteral("1|2|0"));
    }
    void buttons()
    {
        const auto [button, row] = zelFetch<QByteArray, int>({"button", "row"});
        zelRangeEditor e;
        fill(e, {0, 1, 2});
        QSignalSpy changed(&e, &zelRangeEditor::Changed);
        const QString before = layout(e);
        click(e, button, row);
        QTEST(layout(e), "layout");
        QStringList labels;
        for (const auto &r : e.Items())
            labels << r->Label();
        QTEST(labels.join(QLatin1Char('|')), "labels");
        QCOMPARE(changed.size(), layout(e) == before ? 0 : 1);
    }

    void captionsAndBoxes()
    {
        zelRangeEditor e;
        fill(e, {0, 1, 2});
        auto captions = [&] {
            auto *m = e.Grid()->model();
            return m->headerData(0, Qt::Horizontal).toString() + QLatin1Char('|') +
                   m->headerData(1, Qt::Horizontal).toString();
        };
        QCOMPARE(captions(), QStringLiteral("Source >=|Source <"));
        QSignalSpy changed(&e, &zelRangeEditor::Changed);
        e.IncludeLowerBoundBox()->click();
        QCOMPARE(captions(), QStringLiteral("Source >  |Source <=  "));
        for (const auto &r : e.Items())
            QVERIFY(!r->IncludeLowerBound());
        e.IncludeLowerBoundBox()->click();
        QCOMPARE(captions(), QStringLiteral("Source >=  |Source <  "));
        e.Clear();
        QCOMPARE(captions(), QStringLiteral("Source >=|Source <"));
        // Interpolation reaches every range but the open ends.
        fill(e, {0, 1, 2, 3});
        e.InterpolateBox()->click(); // the box starts ticked
        e.InterpolateBox()->click();
        QStringList flags;
        for (const auto &r : e.Items())
            flags << QString::number(r->Interpolate());
        QCOMPARE(flags.join(QString()), QStringLiteral("0110"));
        QCOMPARE(changed.size(), 4);
    }

    void boundEdits_data()
    {
        zelColumns<int, QString, QString, QString>({"row", "text", "message", "layout"});
        const QString numeric = QStringLiteral("Please enter a numeric value.");
        const QString kept = QStringLiteral("Min-1.00|1.00-5.00|5.00-Max");
        for (const char *bad : {"abc", "", "1e400", "NaN", "max ", "inf"})
            zelRow(qPrintable(QStringLiteral("'%1'").arg(bad)), 1, QString::fromLatin1(bad),
                   numeric, kept);
        zelRow("equal to the lower bound", 1, QStringLiteral("1"),
               QStringLiteral("Please enter an upper value that is greater than the \r\n"
                              "lower value (1.00)."),
               kept);
        zelRow("max in a middle range", 1, QStringLiteral("Max"),
               QStringLiteral("Please enter a value that is less than the upper value\r\n"
                              "of the next higher range (999999999.00)."),
               kept);
        zelRow("above the next range", 0, QStringLiteral("6"),
               QStringLiteral("Please enter a value that is less than the upper value\r\n"
                              "of the next higher range (5.00)."),
               kept);
        zelRow("taken", 1, QStringLiteral(" 2.5 "), QString(),
               QStringLiteral("Min-1.00|1.00-2.50|2.50-Max"));
        zelRow("MAX on the last range", 2, QStringLiteral("MAX"), QString(), kept);
        zelRow("the last range closed", 2, QStringLiteral("7"), QString(),
               QStringLiteral("Min-1.00|1.00-5.00|5.00-7.00"));
    }
    void boundEdits()
    {
        const auto [row, text] = zelFetch<int, QString>({"row", "text"});
        zelTestScope scope;
        zelRangeEditor e;
        fill(e, {0, 1, 5});
        e.EditCell(row, 1, text);
        QTEST(scope.fake().messages.value(0).text, "message");
        QCOMPARE(scope.fake().messages.value(0).title,
                 scope.fake().messages.isEmpty() ? QString() : QStringLiteral("Invalid Data"));
        QTEST(layout(e), "layout");
    }

    void undoRestoresEveryEdit()
    {
        zelTestScope scope;
        scope.fake().colorDialogAnswer = 0xABCDEF;
        zelRangeEditor e;
        e.SetShowLabel(true);
        fill(e, {0, 1, 2, 3});
        auto state = [&] {
            QStringList s;
            for (const auto &r : e.Items())
                s << QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                         .arg(r->Key())
                         .arg(r->Min())
                         .arg(r->Max())
                         .arg(r->Value().toString(), r->Label())
                         .arg(r->Color())
                         .arg(r->Interpolate() * 2 + r->IncludeLowerBound());
            return s.join(QLatin1Char('|')) + e.CellText(0, 0) + e.CellText(2, 2) +
                   QString::number(e.InterpolateBox()->isChecked());
        };
        QStringList states{state()};
        QSignalSpy changed(&e, &zelRangeEditor::Changed);
        const auto held = e.Item(2);
        const std::function<void()> edits[] = {
            [&] { e.EditCell(1, 1, QStringLiteral("1.5")); },
            [&] { e.EditCell(2, 2, QStringLiteral("forty")); },
            [&] { e.EditCell(2, 4, QStringLiteral("a label")); },
            [&] { emit e.Grid()->doubleClicked(e.Grid()->model()->index(2, 3)); },
            [&] { click(e, "cmdRemove", 1); },
            [&] { click(e, "cmdInsert", 1); },
            [&] { e.InterpolateBox()->click(); },
            [&] { e.IncludeLowerBoundBox()->click(); },
        };
        for (const auto &edit : edits) {
            edit();
            states << state();
            QVERIFY2(states.last() != states.at(states.size() - 2),
                     qPrintable(QStringLiteral("edit %1 changed nothing").arg(states.size() - 1)));
        }
        QCOMPARE(changed.size(), 8);
        for (qsizetype i = states.size() - 2; i >= 0; --i) {
            QVERIFY(e.Undo());
            QCOMPARE(state(), states.at(i));
        }
        QVERIFY(!e.Undo());
        QCOMPARE(e.Item(2), held);
        for (qsizetype i = 1; i < states.size(); ++i) {
            QVERIFY(e.Redo());
            QCOMPARE(state(), states.at(i));
        }
        QCOMPARE(changed.size(), 24);
        // A host's own change ends the history.
        e.Create(0.25);
        QVERIFY(!e.Undo());
    }

    void lateBound()
    {
        zelTestScope scope;
        zelRangeEditor e;
        e.SetDstFormat(QStringLiteral("0.0"));
        QVariant r = zel::CallByName(&e, QStringLiteral("Create"), {4, 2});
        zel::CallByName(&e, QStringLiteral("Create"), {8, zel::Missing(), true, 255});
        QObject *first = zel::ObjectOf(r);
        QVERIFY(first);
        QCOMPARE(zel::GetProperty(first, QStringLiteral("Key")).toString(), QStringLiteral("1K"));
        // The split range took the missing value; the new one above it the 2.
        QCOMPARE(e.CellText(0, 2), QString());
        QCOMPARE(e.CellText(1, 2), QStringLiteral("2.0"));
        QVERIFY(!zel::ObjectOf(zel::CallByName(&e, QStringLiteral("Item"), {"99K"})));
        QCOMPARE(zelLoggedErrors(), 0);
    }
};

QTEST_MAIN(tst_RangeEditor)
#include "tst_rangeeditor.moc"
