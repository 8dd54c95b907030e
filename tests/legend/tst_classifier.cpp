// The classifier: natural breaks against the best partition found by trying
// every one, the methods on sets worked out by hand (some at the ends of what
// a double holds, where every method must still answer and not hang), and a
// range editor filled by name, also from bad input.

#include "legend/zelBreaks.h"
#include "legend/zelClassifier.h"
#include "legend/zelRangeEditor.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QTest>

#include <algorithm>
#include <bit>
#include <limits>
#include <random>
#include <set>

using Values = QList<double>;

namespace {

// The sum of squared distances from their mean of x[from] to x[to - 1].
double squares(const std::vector<double> &x, size_t from, size_t to)
{
    double mean = 0, s = 0;
    for (size_t i = from; i < to; ++i)
        mean += x[i] / double(to - from);
    for (size_t i = from; i < to; ++i)
        s += (x[i] - mean) * (x[i] - mean);
    return s;
}

// The ranges as the grid shows them with their labels,
// "Min-5.00 1 - 5|5.00-Max 5 - 9", or where the chain of bounds or the open
// ends break.
QString layout(const zelRangeEditor &e)
{
    QStringList rows;
    for (qint32 i = 1; i <= e.Count(); ++i) {
        const auto r = e.Item(i);
        if ((i > 1 && e.Item(i - 1)->Max() != r->Min()) || r->IsMin() != (i == 1) ||
            r->IsMax() != (i == e.Count()))
            return QStringLiteral("broken at %1").arg(i);
        rows << e.CellText(i - 1, 0) + '-' + e.CellText(i - 1, 1) + ' ' + r->Label();
    }
    return rows.join('|');
}

} // namespace

class tst_Classifier : public QObject
{
    Q_OBJECT

private slots:
    void naturalBreaksAreTheBestPartition_data()
    {
        zelColumns<Values, int>({"values", "classes"});
        for (unsigned seed = 1; seed <= 40; ++seed) {
            std::mt19937 rng(seed);
            Values v(1 + int(rng() % 12));
            for (double &x : v) // even seeds draw ties, odd ones spread values
                x = seed % 2 ? std::ldexp(double(rng()), -20) - 2000.0 : double(rng() % 6);
            zelRow(qPrintable(QStringLiteral("seed %1").arg(seed)), v, 1 + int(seed % 6));
        }
    }
    void naturalBreaksAreTheBestPartition()
    {
        const auto [values, classes] = zelFetch<Values, int>({"values", "classes"});
        std::vector<double> x(values.begin(), values.end());
        std::sort(x.begin(), x.end());
        const std::vector<double> b = zel::ClassBreaks(ZEL_Classify_NaturalBreaks, x, classes);
        const int made = std::min(classes, int(std::set<double>(x.begin(), x.end()).size()));
        QCOMPARE(int(b.size()) + 1, made);
        double ours = 0;
        for (size_t c = 0, from = 0, to; c <= b.size(); ++c, from = to) {
            to = c < b.size() ? size_t(std::lower_bound(x.begin(), x.end(), b[c]) - x.begin())
                              : x.size();
            QVERIFY2(to > from, "an empty class");
            ours += squares(x, from, to);
        }
        // Every way to cut the values into as many runs.
        double best = std::numeric_limits<double>::infinity();
        for (unsigned cuts = 0; cuts < (1u << (x.size() - 1)); ++cuts) {
            if (std::popcount(cuts) != made - 1)
                continue;
            double total = 0;
            for (size_t from = 0, i = 1; i <= x.size(); ++i)
                if (i == x.size() || (cuts >> (i - 1)) & 1) {
                    total += squares(x, from, i);
                    from = i;
                }
            best = std::min(best, total);
        }
        QVERIFY2(std::abs(ours - best) <= 1e-9 * (1 + best),
                 qPrintable(QStringLiteral("%1 against %2").arg(ours).arg(best)));
    }

    void methodsOnSetsWorkedByHand_data()
    {
        zelColumns<int, Values, int, Values>({"method", "values", "classes", "breaks"});
        const Values hundred{0, 10, 37, 55, 80, 100}, spread{2, 4, 4, 4, 5, 5, 7, 9};
        const double big = std::numeric_limits<double>::max();
        const int eq = ZEL_Classify_EqualInterval, qu = ZEL_Classify_Quantile,
                  sd = ZEL_Classify_StdDeviation, pr = ZEL_Classify_Pretty,
                  nb = ZEL_Classify_NaturalBreaks;
        zelRow("equal interval", eq, hundred, 4, Values{25, 50, 75});
        zelRow("quantile of eight", qu, Values{8, 1, 2, 3, 4, 5, 6, 7}, 4, Values{3, 5, 7});
        zelRow("quantile, ties at the least", qu, Values{1, 1, 1, 1, 2, 3}, 3, Values{2});
        zelRow("deviations, even count", sd, spread, 4, Values{3, 5, 7});
        zelRow("deviations past the least", sd, spread, 5, Values{4, 6, 8});
        zelRow("pretty in tens", pr, hundred, 5, Values{20, 40, 60, 80});
        zelRow("pretty by quarters", pr, Values{0.12, 0.3, 0.6, 0.97}, 4, Values{0.25, 0.5, 0.75});
        zelRow("both ends of a double", eq, Values{-big, 0, big}, 2, Values{0});
        zelRow("denormals", nb, Values{5e-324, 1e-323, 2.5e-323}, 2, Values{2.5e-323});
        zelRow("far from zero", nb, Values{1e17, 1e17 + 16, 1e17 + 64, 1e17 + 1024}, 2,
               Values{1e17 + 1024});
    }
    void methodsOnSetsWorkedByHand()
    {
        const auto [method, values, classes] =
            zelFetch<int, Values, int>({"method", "values", "classes"});
        std::vector<double> x(values.begin(), values.end());
        std::sort(x.begin(), x.end());
        const std::vector<double> b = zel::ClassBreaks(ZEL_ClassifyMethods(method), x, classes);
        QTEST(Values(b.begin(), b.end()), "breaks");
        // Every method and count on the same values: ascending breaks inside them.
        for (int m = 0; m <= ZEL_Classify_NaturalBreaks; ++m)
            for (int k : {1, 2, 3, 7}) {
                const std::vector<double> o = zel::ClassBreaks(ZEL_ClassifyMethods(m), x, k);
                QVERIFY(int(o.size()) < k);
                for (size_t i = 0; i < o.size(); ++i)
                    QVERIFY2(o[i] > x.front() && o[i] <= x.back() && (i == 0 || o[i] > o[i - 1]),
                             qPrintable(QStringLiteral("method %1 into %2").arg(m).arg(k)));
            }
    }

    // By name, as a script fills a legend. The editor held "Min-5.00|5.00-Max"
    // before; what cannot be classed leaves it so.
    void fillsTheEditor_data()
    {
        zelColumns<int, bool, QVariantList, int, QString, QString>(
            {"method", "lower", "values", "classes", "ranges", "error"});
        const QVariantList seven{1, 2, 3, 10, 11, 12, 50}, six{0, 20, 40, 60, 80, 100};
        const QString fill = "zelClassifier.Fill", count = "zelClassifier.ClassCount Let";
        const QString fifths = "Min-20.00 0.00 - 20.00|20.00-40.00 20.00 - 40.00|"
                               "40.00-60.00 40.00 - 60.00|60.00-80.00 60.00 - 80.00|"
                               "80.00-Max 80.00 - 100.00";
        const int natural = ZEL_Classify_NaturalBreaks, equal = ZEL_Classify_EqualInterval;
        zelRow("natural breaks", natural, true, seven, 3,
               QString("Min-10.00 1.00 - 10.00|10.00-50.00 10.00 - 50.00|50.00-Max 50.00 - 50.00"),
               QString());
        zelRow("upper bounds included", natural, false, seven, 3,
               QString("Min-3.00 1.00 - 3.00|3.00-12.00 3.00 - 12.00|12.00-Max 12.00 - 50.00"),
               QString());
        zelRow("no values", natural, true, QVariantList(), 3, QString("Min-5.00 |5.00-Max "), fill);
        zelRow("one value", natural, true, QVariantList{7}, 3, QString("Min-Max 7.00 - 7.00"),
               fill);
        zelRow("fewer distinct values", equal, true, QVariantList{2, 2, 4, 4, 6}, 5,
               QString("Min-4.00 2.00 - 4.00|4.00-6.00 4.00 - 6.00|6.00-Max 6.00 - 6.00"), fill);
        zelRow("not numbers among them", natural, true,
               QVariantList{qQNaN(), 1, "abc", 2, qInf(), 10, 11}, 2,
               QString("Min-10.00 1.00 - 10.00|10.00-Max 10.00 - 11.00"), fill);
        zelRow("no class", equal, true, six, 0, fifths, count);
        zelRow("a million classes", equal, true, six, 1000000, fifths, count);
    }
    void fillsTheEditor()
    {
        const auto [method, lower, values, classes] =
            zelFetch<int, bool, QVariantList, int>({"method", "lower", "values", "classes"});
        zelTestScope scope;
        zelRangeEditor editor;
        editor.Create(9);
        editor.Create(5);
        editor.SetIncludeLowerBound(lower);
        QObject *c = zel::CreateObject(QStringLiteral("zelCtrl.zelClassifier"), &editor);
        for (const auto &[name, v] : {std::pair("Method", method),
                                      {"StartColor", 0},
                                      {"EndColor", 0x20FF40},
                                      {"ClassCount", classes}})
            zel::SetProperty(c, name, v);
        QVariantList args{QVariant::fromValue<QObject *>(&editor), values};
        QCOMPARE(zel::CallByName(c, "Fill", args).toBool(), !values.isEmpty());
        QTEST(layout(editor), "ranges");
        QTEST(zelCaptureLogger::errors.value(0).value(2).toString(), "error");
        QVERIFY(zelCaptureLogger::errors.size() <= 1 && scope.fake().messages.isEmpty());
        // Class numbers from 1, colours along the ramp from the start colour.
        for (qint32 i = 1; i <= editor.Count() && !values.isEmpty(); ++i)
            QCOMPARE(editor.Item(i)->Value().toInt(), i);
        const QList<quint32> ramp{0, 0x108020, 0x20FF40};
        if (editor.Count() == 3)
            for (qint32 i = 1; i <= 3; ++i)
                QCOMPARE(editor.Item(i)->Color(), ramp[i - 1]);
    }
};

QTEST_MAIN(tst_Classifier)
#include "tst_classifier.moc"
