#include "toolbars/zelToolbarLayout.h"

#include "core/zelTrail.h"
#include "platform/zelSettingsGroup.h"
#include "toolbars/zelToolbarCustomise.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QSet>

#include <algorithm>

namespace zel {

namespace {

const QString kValue = QStringLiteral("Layout");

// The group of an application's layout in the per-user store, standing for
// "Software\Quorvane\Toolbars\<application>": the store's separators are
// taken out of the name, so that no name reaches another application's
// group. Empty for an empty or blank name.
QString groupOf(const QString &application)
{
    QString name = application.trimmed();
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return name.isEmpty() ? QString() : QStringLiteral("Toolbars/") + name;
}

zelError foreign(const QString &what)
{
    return zelError(zelError::InvalidPropertyValue, QString(),
                    QStringLiteral("The saved toolbar layout is not usable: ") + what);
}

// The saved order of the keys still there, each key of defaults missing
// from it put after the key it follows in defaults (first when none).
QStringList mergeKeys(const QStringList &defaults, const QStringList &saved)
{
    QSet<QString> known, taken;
    for (const QString &k : defaults)
        known.insert(k.toCaseFolded());
    QStringList out;
    for (const QString &k : saved)
        if (known.contains(k.toCaseFolded()) && !taken.contains(k.toCaseFolded())) {
            taken.insert(k.toCaseFolded());
            out << k;
        }
    for (qsizetype i = 0; i < defaults.size(); ++i) {
        if (taken.contains(defaults[i].toCaseFolded()))
            continue;
        qsizetype at = 0;
        for (qsizetype j = i - 1; j >= 0 && at == 0; --j)
            for (qsizetype k = 0; k < out.size(); ++k)
                if (out[k].compare(defaults[j], Qt::CaseInsensitive) == 0) {
                    at = k + 1;
                    break;
                }
        out.insert(at, defaults[i]);
        taken.insert(defaults[i].toCaseFolded());
    }
    return out;
}

const ToolbarState *find(const QList<ToolbarState> &list, const QString &key)
{
    for (const ToolbarState &s : list)
        if (s.Key.compare(key, Qt::CaseInsensitive) == 0)
            return &s;
    return nullptr;
}

} // namespace

QByteArray ToolbarLayoutToJson(const ToolbarLayoutState &state)
{
    QJsonArray bars;
    for (const ToolbarState &s : state.Toolbars)
        bars.append(QJsonObject{{"Key", s.Key},
                                {"Visible", s.Visible},
                                {"Dock", s.Dock},
                                {"LineBreak", s.LineBreak},
                                {"Tools", QJsonArray::fromStringList(s.Tools)}});
    return QJsonDocument(QJsonObject{{"Version", ToolbarLayoutVersion}, {"Toolbars", bars}})
        .toJson(QJsonDocument::Compact);
}

ToolbarLayoutState ToolbarLayoutFromJson(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        throw foreign(QStringLiteral("it is no JSON object"));
    const QJsonObject root = doc.object();
    const QJsonValue version = root.value(QLatin1String("Version"));
    if (!version.isDouble() || version.toDouble() != version.toInt() || version.toInt() < 1)
        throw foreign(QStringLiteral("it carries no version"));
    if (version.toInt() > ToolbarLayoutVersion)
        throw foreign(QStringLiteral("a newer version (%1) wrote it").arg(version.toInt()));
    const QJsonValue bars = root.value(QLatin1String("Toolbars"));
    if (!bars.isArray())
        throw foreign(QStringLiteral("it holds no toolbars"));
    ToolbarLayoutState state;
    for (const QJsonValue &v : bars.toArray()) {
        const QJsonObject o = v.toObject();
        const QJsonValue key = o.value(QLatin1String("Key")), dock = o.value(QLatin1String("Dock")),
                         tools = o.value(QLatin1String("Tools"));
        if (!v.isObject() || !key.isString() || key.toString().isEmpty() || !dock.isDouble() ||
            dock.toInt(-1) < ZEL_Toolbar_DockedTop || dock.toInt(-1) > ZEL_Toolbar_Floating ||
            !o.value(QLatin1String("Visible")).isBool() || !tools.isArray())
            throw foreign(QStringLiteral("a toolbar entry is broken"));
        ToolbarState s;
        s.Key = key.toString();
        s.Visible = o.value(QLatin1String("Visible")).toBool();
        s.Dock = dock.toInt();
        s.LineBreak = o.value(QLatin1String("LineBreak")).toBool();
        for (const QJsonValue &t : tools.toArray()) {
            if (!t.isString())
                throw foreign(QStringLiteral("a tool key is no text"));
            s.Tools << t.toString();
        }
        if (!find(state.Toolbars, s.Key))
            state.Toolbars << s;
    }
    return state;
}

ToolbarLayoutState MergeToolbarLayout(const ToolbarLayoutState &defaults,
                                      const ToolbarLayoutState &saved)
{
    QStringList defaultKeys, savedKeys;
    for (const ToolbarState &s : defaults.Toolbars)
        defaultKeys << s.Key;
    for (const ToolbarState &s : saved.Toolbars)
        savedKeys << s.Key;
    ToolbarLayoutState out;
    for (const QString &key : mergeKeys(defaultKeys, savedKeys)) {
        ToolbarState s = *find(defaults.Toolbars, key);
        if (const ToolbarState *left = find(saved.Toolbars, key)) {
            s.Visible = left->Visible;
            s.Dock = left->Dock;
            s.LineBreak = left->LineBreak;
            s.Tools = mergeKeys(s.Tools, left->Tools);
        }
        out.Toolbars << s;
    }
    return out;
}

ToolbarLayoutState CaptureToolbarLayout(const zelToolbars &toolbars)
{
    ToolbarLayoutState state;
    for (const auto &bar : toolbars.Toolbars())
        state.Toolbars << ToolbarState{bar->Key(), bar->Visible(), qint32(bar->DockedPosition()),
                                       bar->LineBreak(), bar->Tools()->Keys()};
    // On a window on screen the toolbars that show stand in the order of
    // where they are: by area, then by line, then along the line. A hidden
    // one has no place on screen and keeps its place in the order kept.
    QMainWindow *w = toolbars.Window();
    if (!w || !w->isVisible())
        return state;
    auto place = [&](const ToolbarState &s) {
        const auto bar = toolbars.Item(s.Key);
        // The menu bar stands above every toolbar.
        const QRect g = bar->MenuBar() ? QRect(-1, -1, 0, 0) : bar->Bar()->geometry();
        const bool across = s.Dock == ZEL_Toolbar_DockedTop || s.Dock == ZEL_Toolbar_DockedBottom;
        return std::tuple(s.Dock, across ? g.y() : g.x(), across ? g.x() : g.y());
    };
    QList<qsizetype> places;
    QList<ToolbarState> shown;
    for (qsizetype i = 0; i < state.Toolbars.size(); ++i)
        if (state.Toolbars[i].Visible) {
            places << i;
            shown << state.Toolbars[i];
        }
    std::stable_sort(shown.begin(), shown.end(), [&](const ToolbarState &a, const ToolbarState &b) {
        return place(a) < place(b);
    });
    for (qsizetype i = 0; i < places.size(); ++i)
        state.Toolbars[places[i]] = shown[i];
    return state;
}

void ApplyToolbarLayout(zelToolbars &toolbars, const ToolbarLayoutState &state)
{
    QStringList order;
    for (const ToolbarState &s : state.Toolbars) {
        const auto bar = toolbars.Item(s.Key);
        if (!bar)
            continue;
        order << bar->Key();
        bar->Tools()->Reorder(s.Tools);
        bar->SetVisible(s.Visible);
        bar->SetDockedPosition(ZEL_Toolbar_DockedPositions(s.Dock));
        bar->SetLineBreak(s.LineBreak);
    }
    toolbars.ReorderToolbars(order);
}

} // namespace zel

zelToolbarLayout::zelToolbarLayout(std::shared_ptr<zelToolbars> toolbars,
                                   const QString &sApplication, QObject *parent)
    : QObject(parent), m_toolbars(std::move(toolbars)), m_application(sApplication)
{}

zelToolbarLayout::~zelToolbarLayout() = default;

zel::ToolbarLayoutState zelToolbarLayout::Defaults() const
{
    if (m_defaults)
        return *m_defaults;
    return m_toolbars ? zel::CaptureToolbarLayout(*m_toolbars) : zel::ToolbarLayoutState();
}

bool zelToolbarLayout::Restore()
{
    zel::Trail t(this, "Restore");
    bool restored = false;
    t.Run([&] {
        if (!m_toolbars)
            throw zelError(zelError::ObjectRequired, t.Name(), QStringLiteral("No toolbars"));
        if (!m_defaults)
            m_defaults = std::make_unique<zel::ToolbarLayoutState>(Defaults());
        const QString section = zel::groupOf(m_application);
        if (section.isEmpty())
            throw zelError(zelError::InvalidProcedureCall, t.Name(),
                           QStringLiteral("No application name"));
        t.Step = QStringLiteral("Reading");
        const QVariant stored = zel::ReadUserGroup(section).value(zel::kValue);
        if (!stored.isValid()) {
            restored = true;
            return;
        }
        t.Step = QStringLiteral("Merging");
        zel::ToolbarLayoutState saved;
        try {
            saved = zel::ToolbarLayoutFromJson(stored.toString().toUtf8());
        } catch (...) {
            zel::ApplyToolbarLayout(*m_toolbars, *m_defaults);
            throw;
        }
        zel::ApplyToolbarLayout(*m_toolbars, zel::MergeToolbarLayout(*m_defaults, saved));
        restored = true;
    });
    return restored;
}

bool zelToolbarLayout::Save()
{
    zel::Trail t(this, "Save");
    bool saved = false;
    t.Run([&] {
        const QString section = zel::groupOf(m_application);
        if (!m_toolbars || section.isEmpty())
            throw zelError(zelError::InvalidProcedureCall, t.Name(),
                           QStringLiteral("No toolbars or no application name"));
        const QByteArray json = zel::ToolbarLayoutToJson(zel::CaptureToolbarLayout(*m_toolbars));
        QString error;
        if (!zel::WriteUserGroup(section, {{zel::kValue, QString::fromUtf8(json)}}, error))
            throw zelError(75, t.Name(), error);
        saved = true;
    });
    return saved;
}

void zelToolbarLayout::Reset()
{
    zel::Trail t(this, "Reset");
    t.Run([&] {
        if (m_toolbars)
            zel::ApplyToolbarLayout(*m_toolbars, Defaults());
    });
}

QDialog *zelToolbarLayout::Customise(QWidget *parent)
{
    zel::Trail t(this, "Customise");
    QDialog *dialog = nullptr;
    t.Run([&] {
        if (!m_toolbars)
            throw zelError(zelError::ObjectRequired, t.Name(), QStringLiteral("No toolbars"));
        if (!m_defaults)
            m_defaults = std::make_unique<zel::ToolbarLayoutState>(Defaults());
        dialog = new zelToolbarCustomise(this, parent);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
    return dialog;
}
