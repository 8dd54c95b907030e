// A saved toolbar layout of any content, as the per-user store may hold it:
// it is refused as a whole or read; what is read merges with an
// application's toolbars without adding or losing a toolbar or a tool, and
// writes and reads back as itself.

#include "zelFuzzSupport.h"

#include "core/zelError.h"
#include "toolbars/zelToolbarLayout.h"

#include <QSet>

namespace {

QSet<QString> folded(const QStringList &keys)
{
    QSet<QString> out;
    for (const QString &k : keys)
        out.insert(k.toCaseFolded());
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    zel::ToolbarLayoutState saved;
    try {
        saved = zel::ToolbarLayoutFromJson(bytes);
    } catch (const zelError &) {
        return 0;
    }
    zelfuzz::Check(zel::ToolbarLayoutFromJson(zel::ToolbarLayoutToJson(saved)) == saved,
                   "a layout read does not write and read back as itself");
    const zel::ToolbarLayoutState app{{{"File", true, 0, false, {"New", "Open", "Save"}},
                                       {"View", true, 2, true, {"ZoomIn", "ZoomOut"}},
                                       {"Menus", true, 0, false, {"FileMenu"}}}};
    const auto merged = zel::MergeToolbarLayout(app, saved);
    zelfuzz::Check(merged.Toolbars.size() == app.Toolbars.size(), "a toolbar was added or lost");
    for (const auto &bar : merged.Toolbars) {
        const auto own = std::find_if(app.Toolbars.begin(), app.Toolbars.end(),
                                      [&](const auto &a) { return a.Key == bar.Key; });
        zelfuzz::Check(own != app.Toolbars.end(), "a toolbar of another application came in");
        zelfuzz::Check(bar.Tools.size() == own->Tools.size() &&
                           folded(bar.Tools) == folded(own->Tools),
                       "a tool was added or lost");
        zelfuzz::Check(bar.Dock >= 0 && bar.Dock <= 4, "a dock out of range");
    }
    return 0;
}
