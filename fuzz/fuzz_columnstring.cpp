// Column strings of the record lists, in both dialects: any text
// gives at least one column, no caption holds a tab, widths are never
// negative, and a huge column string stops at the column limit.

#include "zelFuzzSupport.h"

#include "lists/zelColumnString.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    zelfuzz::Bytes in(data, size);
    const double twipsPerPixel = in.Byte() % 4 == 0 ? in.Double() : 15.0;
    const QString colText = in.Rest();
    for (const auto dialect : {zel::zelColumnDialect::Combo, zel::zelColumnDialect::TreeList}) {
        zel::zelColumnParseIssues issues;
        const auto columns = zel::ParseColumns(colText, dialect, twipsPerPixel, &issues);
        zelfuzz::Check(!columns.isEmpty(), "a column string gave no column");
        zelfuzz::Check(columns.size() <= zel::zelMaxColumns, "more columns than the limit");
        zelfuzz::Check(issues.truncated == (colText.count(QLatin1Char('\t')) >= zel::zelMaxColumns),
                       "the column limit was reported wrongly");
        for (const auto &c : columns) {
            zelfuzz::Check(c.widthPixels >= 0, "a negative column width");
            zelfuzz::Check(!c.caption.contains(QLatin1Char('\t')), "a caption holds a tab");
            zelfuzz::Check(c.alignment >= -1 && c.alignment <= 2, "an alignment out of range");
        }
    }
    return 0;
}
