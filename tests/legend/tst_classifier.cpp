// The classifier: natural breaks against the best partition found by trying
// every one, the other methods on sets worked out by hand, values no method
// may hang or go wrong on, and the classifier's answers to bad input.

#include "legend/zelBreaks.h"
#include "legend/zelClassifier.h"
#include "legend/zelRangeEditor.h"
#include "platform/zelLateBinding.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QTest>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <set>

using Values = QList<double>;

namespace {

double sse(const std::vector<double> &x, size_t from, size_t to)
{
    double mean = 0, s = 0;
    for (size_t i = from; i < to; ++i)
        mean += x[i] / double(to - from);
    for (size_t i = from; i < to; ++i)
        s += (x[i] - mean) * (x[i] - mean);
    return s;
}

// The least sum of squares of sorted into k non-empty runs, by every cut.
double bestByEveryCut(const std::vector<double> &x, int k)
{
    const size_t n = x.size();
    double best = std::numeric_limits<double>::infinity();
    for (unsigned cuts = 0; cuts < (1u << (n - 1)); ++cuts) {
        if (std::popcount(cuts) != k - 1)
            continue;
        double total = 0;
        for (size_t from = 0, i = 1; i <= n; ++i)
            if (i == n || (cuts >> (i - 1)) & 1) {
                total += sse(x, from, i);
                from = i;
            }
        best = std::min(best, total);
    }
    return best;
}

// The ranges as the grid shows them, "Min-5.00|5.00-Max", their labels, or
// where the chain of bounds, the open ends or the class numbers break.
QString layout(const zelRangeEditor &e, bool labels = false)
{
    QStringList rows;
    for (qint32 i = 1; i <= e.Count(); ++i) {
        const auto r = e.Item(i);
        if ((i > 1 && e.Item(i - 1)->Max() != r->Min()) || r->IsMin() != (i == 1) ||
            r->IsMax() != (i == e.Count()))
            return QStringLiteral("broken at %1").arg(i);
        rows << (labels ? r->Label() : e.CellText(i - 1, 0) + '-' + e.CellText(i - 1, 1));
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
            const int n = 1 + int(rng() % 12);
            Values v;
            for (int i = 0; i < n; ++i) // even seeds draw ties, odd ones spread values
                v << (seed % 2 ? std::ldexp(double(rng()), -20) - 2000.0 : double(rng() % 6));
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
        for (size_t c = 0, from = 0; c <= b.size(); ++c) {
            const size_t to = c < b.size()
                                  ? size_t(std::lower_bound(x.begin(), x.end(), b[c]) - x.begin())
                                  : x.size();
            QVERIFY2(to > from, "an empty class");
            ours += sse(x, from, to);
            from = to;
        }
        const double best = bestByEveryCut(x, made);
        QVERIFY2(std::abs(ours - best) <= 1e-9 * (1 + best),
                 qPrintable(QStringLiteral("%1 against %2").arg(ours).arg(best)));
    }

    void methodsOnSetsWorkedByHand_data()
    {
        zelColumns<int, Values, int, Values>({"method", "values", "classes", "breaks"});
        const Values hundred{0, 10, 37, 55, 80, 100}, spread{2, 4, 4, 4, 5, 5, 7, 9};
        zelRow("equal interval", int(ZEL_Classify_EqualInterval), hundred, 4, Values{25, 50, 75});
        zelRow("quantile of eight", int(ZEL_Classify_Quantile), Values{8, 1, 2, 3, 4, 5, 6, 7}, 4,
               Values{3, 5, 7});
        zelRow("quantile with ties at the least", int(ZEL_Classify_Quantile),
               Values{1, 1, 1, 1, 2, 3}, 3, Values{2});
        zelRow("deviations, even count", int(ZEL_Classify_StdDeviation), spread, 4,
               Values{3, 5, 7});
        zelRow("deviations, odd count", int(ZEL_Classify_StdDeviation), spread, 3, Values{4, 6});
        zelRow("deviations beyond the values", int(ZEL_Classify_StdDeviation), spread, 5,
               Values{4, 6, 8});
        zelRow("pretty in tens", int(ZEL_Classify_Pretty), hundred, 5, Values{20, 40, 60, 80});
        zelRow("pretty by a quarter", int(ZEL_Classify_Pretty), Values{0.12, 0.3, 0.6, 0.97}, 4,
               Values{0.25, 0.5, 0.75});
        zelRow("natural", int(ZEL_Classify_NaturalBreaks), Values{1, 2, 3, 10, 11, 12, 50}, 3,
               Values{10, 50});
        zelRow("each distinct value", int(ZEL_Classify_EqualInterval), Values{5, 7, 5}, 4,
               Values{7});
        zelRow("one value", int(ZEL_Classify_Pretty), Values{5}, 3, Values{});
    }
    void methodsOnSetsWorkedByHand()
    {
        const auto [method, values, classes] =
            zelFetch<int, Values, int>({"method", "values", "classes"});
        std::vector<double> x(values.begin(), values.end());
        std::sort(x.begin(), x.end());
        const std::vector<double> b = zel::ClassBreaks(ZEL_ClassifyMethods(method), x, classes);
        QTEST(Values(b.begin(), b.end()), "breaks");
    }

    // Values at the ends of what a double holds: every method answers
    // ascending breaks inside the values, and none hangs.
    void extremeValues_data()
    {
        zelColumns<Values>({"values"});
        const double big = std::numeric_limits<double>::max();
        zelRow("both ends", Values{-big, 0, big});
        zelRow("denormals", Values{5e-324, 1e-323, 1.5e-323});
        zelRow("far from zero", Values{1e17, 1e17 + 16, 1e17 + 64, 1e17 + 1024});
        zelRow("huge and tiny", Values{1e300, 1e-300, -1e-300, 3});
    }
    void extremeValues()
    {
        QFETCH(Values, values);
        std::vector<double> x(values.begin(), values.end());
        std::sort(x.begin(), x.end());
        for (int method = 0; method <= ZEL_Classify_NaturalBreaks; ++method) {
            for (int classes : {1, 2, 3, 7}) {
                const std::vector<double> b =
                    zel::ClassBreaks(ZEL_ClassifyMethods(method), x, classes);
                QVERIFY(int(b.size()) < classes);
                for (size_t i = 0; i < b.size(); ++i)
                    QVERIFY2(b[i] > x.front() && b[i] <= x.back() && (i == 0 || b[i] > b[i - 1]),
                             qPrintable(QStringLiteral("method %1").arg(method)));
            }
        }
    }

    // Through the late-bound edge, as a script fills a legend. The editor
    // held "Min-5.00|5.00-Max" before; what cannot be classed leaves it so.
    void fillsTheEditor_data()
    {
        zelColumns<int, bool, QVariantList, int, QString, QString, QStringList>(
            {"method", "lower", "values", "classes", "ranges", "labels", "errors"});
        const QVariantList seven{1, 2, 3, 10, 11, 12, 50}, six{0, 20, 40, 60, 80, 100};
        const QString fill = QStringLiteral("zelClassifier.Fill");
        const QString fifths = "Min-20.00|20.00-40.00|40.00-60.00|60.00-80.00|80.00-Max";
        const int natural = ZEL_Classify_NaturalBreaks, equal = ZEL_Classify_EqualInterval;
        zelRow("natural breaks", natural, true, seven, 3,
               QString("Min-10.00|10.00-50.00|50.00-Max"),
               QString("1.00 - 10.00|10.00 - 50.00|50.00 - 50.00"), QStringList());
        zelRow("upper bounds included", natural, false, seven, 3,
               QString("Min-3.00|3.00-12.00|12.00-Max"),
               QString("1.00 - 3.00|3.00 - 12.00|12.00 - 50.00"), QStringList());
        zelRow("no values", natural, true, QVariantList(), 3, QString("Min-5.00|5.00-Max"),
               QString("|"), QStringList{fill});
        zelRow("one value", natural, true, QVariantList{7}, 3, QString("Min-Max"),
               QString("7.00 - 7.00"), QStringList{fill});
        zelRow("fewer distinct values", equal, true, QVariantList{2, 2, 4, 4, 6}, 5,
               QString("Min-4.00|4.00-6.00|6.00-Max"),
               QString("2.00 - 4.00|4.00 - 6.00|6.00 - 6.00"), QStringList{fill});
        zelRow("not numbers among them", natural, true,
               QVariantList{qQNaN(), 1, "abc", 2, qInf(), 10, 11}, 2,
               QString("Min-10.00|10.00-Max"), QString("1.00 - 10.00|10.00 - 11.00"),
               QStringList{fill});
        zelRow("no class", equal, true, six, 0, fifths,
               QString("0.00 - 20.00|20.00 - 40.00|40.00 - 60.00|60.00 - 80.00|80.00 - 100.00"),
               QStringList{"zelClassifier.ClassCount Let"});
        zelRow("a million classes", equal, true, six, 1000000, fifths,
               QString("0.00 - 20.00|20.00 - 40.00|40.00 - 60.00|60.00 - 80.00|80.00 - 100.00"),
               QStringList{"zelClassifier.ClassCount Let"});
    }
    void fillsTheEditor()
    {
        const auto [method, lower, values, classes] =
            zelFetch<int, bool, QVariantList, int>({"method", "lower", "values", "classes"});
        zelTestScope scope;
        zelRangeEditor editor;
        editor.Create(9, 1);
        editor.Create(5, 2, false, 0, QStringLiteral(""));
        editor.SetIncludeLowerBound(lower);
        QObject *c = zel::CreateObject(QStringLiteral("zelCtrl.zelClassifier"), &editor);
        QVERIFY(c);
        zel::SetProperty(c, "Method", method);
        zel::SetProperty(c, "StartColor", 0);
        zel::SetProperty(c, "EndColor", 0x20FF40);
        zel::SetProperty(c, "ClassCount", classes);
        const bool filled =
            zel::CallByName(c, "Fill", {QVariant::fromValue<QObject *>(&editor), values}).toBool();
        QTEST(layout(editor), "ranges");
        QTEST(layout(editor, true), "labels");
        QStringList errors;
        for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
            errors << e.value(2).toString();
        QTEST(errors, "errors");
        QCOMPARE(filled, !values.isEmpty());
        if (!filled)
            return;
        QCOMPARE(editor.MinRange()->Color(), 0u);
        QCOMPARE(editor.MaxRange()->Color(), editor.Count() > 1 ? 0x20FF40u : 0u);
        for (qint32 i = 1; i <= editor.Count(); ++i)
            QCOMPARE(editor.Item(i)->Value().toInt(), i);
        if (editor.Count() == 3)
            QCOMPARE(editor.Item(2)->Color(), 0x108020u);
        QCOMPARE(scope.fake().messages.size(), 0);
    }
};

QTEST_MAIN(tst_Classifier)
#include "tst_classifier.moc"
