// The classic number formats as hosts write them into SrcFormat and
// DstFormat, and the formats that must show the number plainly instead.

#include "core/zelNumberFormat.h"
#include "zelTestData.h"

#include <limits>

class tst_NumberFormat : public QObject
{
    Q_OBJECT

private slots:
    void formats_data()
    {
        zelColumns<double, QString, QString>({"value", "format", "text"});
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const struct
        {
            const char *name;
            double value;
            const char *format, *text;
        } rows[] = {
            {"two decimals", 1234.5, "0.00", "1234.50"},
            {"grouped", 1234567.891, "#,##0.0", "1,234,567.9"},
            {"percent", 0.256, "0%", "26%"},
            {"scientific", 1234.5, "0.00E+00", "1.23E+03"},
            {"scientific small", 0.000123, "0.00E-00", "1.23E-04"},
            {"scientific E- positive", 1234.5, "0.0E-0", "1.2E3"},
            {"scientific carries", 99999.0, "0.0E+00", "1.0E+05"},
            {"half away from zero", 2.5, "0", "3"},
            {"negative half", -2.5, "0", "-3"},
            {"quoted literal", 5, "\"n = \"0", "n = 5"},
            {"escaped literal", 5, "0\\ \\m", "5 m"},
            {"negative section", -5, "0;(0)", "(5)"},
            {"zero section", 0, "0;(0);\"none\"", "none"},
            {"empty negative section", -5, "0.0;;\"z\"", "-5.0"},
            {"scaled by thousands", 1234567, "#,##0,\"k\"", "1,235k"},
            {"optional digits", 0.5, "#.##", ".5"},
            {"point kept", 5, "#.##", "5."},
            {"leading zeros", 7, "000", "007"},
            {"negative rounding to zero", -0.001, "0.00", "0.00"},
            {"named standard", 1234.5, "Standard", "1,234.50"},
            {"named percent", 0.5, "percent", "50.00%"},
            {"no format", 1234.5, "", "1234.5"},
            {"huge plain", 1e20, "", "1E+20"},
            {"open quote", 1.5, "0.0\"abc", "1.5"},
            {"trailing backslash", 1.5, "0.0\\", "1.5"},
            {"unknown word", 1.5, "Fancy", "1.5"},
            {"not a number", nan, "0.00", "nan"},
        };
        for (const auto &r : rows)
            zelRow(r.name, r.value, QString::fromUtf8(r.format), QString::fromUtf8(r.text));
    }
    void formats()
    {
        const auto [value, format] = zelFetch<double, QString>({"value", "format"});
        QTEST(zel::FormatNumber(value, format), "text");
    }
};

QTEST_MAIN(tst_NumberFormat)
#include "tst_numberformat.moc"
