// Column specifications of the record lists, in both dialects: any text
// gives at least one column, no caption holds a tab, widths are never
// negative, and a huge specification stops at the column limit.

#include "zelFuzzSupport.h"

#include "lists/zelColumnSpec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    zelfuzz::Bytes in(data, size);
    const double twipsPerPixel = in.Byte() % 4 == 0 ? in.Double() : 15.0;
    const QString spec = in.Rest();
    for (const auto dialect : {zel::zelColumnDialect::Combo, zel::zelColumnDialect::TreeList}) {
        zel::zelColumnParseIssues issues;
        const auto columns = zel::ParseColumns(spec, dialect, twipsPerPixel, &issues);
        zelfuzz::Check(!columns.isEmpty(), "a specification gave no column");
        zelfuzz::Check(columns.size() <= zel::zelMaxColumns, "more columns than the limit");
        zelfuzz::Check(issues.truncated == (spec.count(QLatin1Char('\t')) >= zel::zelMaxColumns),
                       "the column limit was reported wrongly");
        for (const auto &c : columns) {
            zelfuzz::Check(c.widthPixels >= 0, "a negative column width");
            zelfuzz::Check(!c.caption.contains(QLatin1Char('\t')), "a caption holds a tab");
            zelfuzz::Check(c.alignment >= -1 && c.alignment <= 2, "an alignment out of range");
        }
    }
    return 0;
}
