#include "core/mMain.h"

#include "core/zelConvert.h"
#include "core/zelTrail.h"

namespace mMain {

qint32 MinHeightList(qint32 lRows, bool bFirstBand, bool bSecondBand)
{
    qint32 height = 0;
    zel::Trail t(QStringLiteral("mMain.MinHeightList"));
    t.Run([&] {
        const qint32 rows = lRows < 1 ? 1 : lRows;
        qint32 h = zel::CheckedAdd<qint32>(zel::CheckedMul<qint32>(rows, 16), 4);
        if (bFirstBand)
            h = zel::CheckedAdd<qint32>(h, 20);
        if (h > 194)
            h = 194;
        if (bSecondBand)
            h += 20;
        height = h;
    });
    return height;
}

} // namespace mMain
