#include "legend/zelRangeEditor.h"

#include "core/zelNumberFormat.h"
#include "core/zelTrail.h"
#include "legend/zelLegendAccess_p.h"
#include "legend/zelLegendText_p.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QBoxLayout>
#include <QCheckBox>

#include <cmath>

ZEL_REGISTER_PROGID(zelRangeEditor);

namespace {

using Column = zelLegendEditor::Column;

const QString kTitle = QStringLiteral("Invalid Data");

// What an undo puts back: the ranges and the two boxes.
struct Saved
{
    zelLegendSnapshot<zelRangeItem> ranges;
    bool interpolate = true;
    bool includeLowerBound = true;
};

} // namespace

zelRangeEditor::zelRangeEditor(QWidget *parent) : zelLegendEditor(parent)
{
    zel::RegisterShared<zelRangeItem>();
    m_chkInterpolate = new QCheckBox(tr("Interpolate"), this);
    m_chkInterpolate->setObjectName(QStringLiteral("chkInterpolate"));
    m_chkInterpolate->setChecked(m_interpolate);
    m_chkIncludeLowerBound = new QCheckBox(tr("Include lower bound"), this);
    m_chkIncludeLowerBound->setObjectName(QStringLiteral("chkIncludeLowerBound"));
    m_chkIncludeLowerBound->setChecked(m_includeLowerBound);
    ButtonRow()->insertWidget(0, m_chkInterpolate);
    ButtonRow()->insertWidget(1, m_chkIncludeLowerBound);
    connect(m_chkInterpolate, &QCheckBox::clicked, this, [this] { chkInterpolate_Click(); });
    connect(m_chkIncludeLowerBound, &QCheckBox::clicked, this,
            [this] { chkIncludeLowerBound_Click(); });
    Clear();
    EnableButtons();
}

zelRangeEditor::~zelRangeEditor() = default;

const zel::zelPropertyTable &zelRangeEditor::Properties() const
{
    using R = zelRangeEditor;
    using zel::Prop;
    static const zel::zelPropertyTable table({
        Prop("DstScalar", &R::DstScalar, &R::SetDstScalar).Persist().Default(true).With(zel::Init),
        Prop("Interpolate", &R::Interpolate, &R::SetInterpolate)
            .Persist()
            .Default(true)
            .With(zel::Init),
        Prop("IncludeLowerBound", &R::IncludeLowerBound, &R::SetIncludeLowerBound)
            .Persist()
            .Default(true)
            .With(zel::Init),
        Prop("DstFormat", &R::DstFormat, &R::SetDstFormat)
            .Persist()
            .Default(QString())
            .With(zel::Init),
        Prop("SrcFormat", &R::SrcFormat, &R::SetSrcFormat)
            .Persist()
            .Default(QStringLiteral("0.00"))
            .With(zel::Init)
            .Refreshes(RefreshCells),
        Prop("ShowValue", &R::ShowValue, &R::SetShowValue).Persist().Default(true).With(zel::Init),
        Prop("ShowLabel", &R::ShowLabel, &R::SetShowLabel).Persist().Default(false).With(zel::Init),
        Prop("CouldNew", &R::CouldNew, &R::SetCouldNew)
            .Persist()
            .Default(true)
            .With(zel::Init)
            .Refreshes(RefreshButtons),
        Prop("Count", &R::Count),
    });
    return table;
}

void zelRangeEditor::Refresh(quint32 what)
{
    if (what & RefreshCells)
        zelLegendEditor::Refresh();
    if (what & RefreshButtons)
        EnableButtons();
}

void zelRangeEditor::SetSrcFormat(const QString &v)
{
    Let("SrcFormat", m_srcFormat, v);
}

void zelRangeEditor::SetInterpolate(bool v)
{
    LetThen("Interpolate", m_interpolate, v,
            [this] { m_chkInterpolate->setChecked(m_interpolate); });
}

void zelRangeEditor::SetIncludeLowerBound(bool v)
{
    LetThen("IncludeLowerBound", m_includeLowerBound, v, [this] {
        m_chkIncludeLowerBound->setChecked(m_includeLowerBound);
        Recaption();
    });
}

void zelRangeEditor::SetCouldNew(bool v)
{
    Let("CouldNew", m_couldNew, v);
}

std::shared_ptr<zelRangeItem> zelRangeEditor::Item(const QVariant &vKey) const
{
    std::shared_ptr<zelRangeItem> item;
    zel::Trail t(this, "Item Get");
    t.Run([&] { item = m_items.Item(vKey); });
    return item;
}

std::shared_ptr<zelGridEnumerator> zelRangeEditor::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}

std::vector<std::shared_ptr<zelRangeItem>> zelRangeEditor::Items() const
{
    std::vector<std::shared_ptr<zelRangeItem>> items;
    items.reserve(size_t(m_items.Count()));
    for (const auto &item : m_items)
        items.push_back(item);
    return items;
}

std::shared_ptr<zelRangeItem> zelRangeEditor::MinRange() const
{
    return m_items.ItemAt(1);
}

std::shared_ptr<zelRangeItem> zelRangeEditor::MaxRange() const
{
    return m_items.ItemAt(m_items.Count());
}

void zelRangeEditor::Clear()
{
    zel::Trail t(this, "Clear");
    t.Run([&] {
        HostChange();
        const int rows = m_items.Count();
        m_items.Clear();
        RowsRemoved(0, rows);
        // Without the two blanks that a click of the lower-bound box adds.
        SetGridColumns({Column::Lower, Column::Upper, Column::Value, Column::Style, Column::Label},
                       {QStringLiteral("Source >="), QStringLiteral("Source <"),
                        QStringLiteral("Value"), QStringLiteral("Style"), QStringLiteral("Label")});
        EnableButtons();
    });
}

std::shared_ptr<zelRangeItem> zelRangeEditor::Create(double dMax, const QVariant &vValue,
                                                     bool bInterpolate, quint32 lColor,
                                                     const QString &sLabel)
{
    std::shared_ptr<zelRangeItem> result;
    zel::Trail t(this, "Create");
    t.Run([&] {
        if (!std::isfinite(dMax))
            throw zelError(zelError::InvalidProcedureCall, t.Name(),
                           QStringLiteral("The upper bound is not a finite number"));
        HostChange();
        if (m_items.Count() > 0) {
            t.Step = QStringLiteral("Splitting");
            result = Split(dMax, vValue, bInterpolate, lColor, sLabel);
            return;
        }
        auto item = std::make_shared<zelRangeItem>();
        zelLegendAccess::SetIdentity(*item, ++m_nextIdentity);
        item->SetMax(dMax);
        item->SetValue(vValue);
        item->SetInterpolate(bInterpolate);
        item->SetColor(lColor);
        item->SetLabel(sLabel);
        item->SetIsMin(true);
        item->SetIsMax(true);
        item->SetIncludeLowerBound(m_includeLowerBound);
        item->SetIndex(1);
        m_items.Add(item, item->Key());
        RowsInserted(0, 1);
        EnableButtons();
        result = item;
    });
    return result;
}

qint32 zelRangeEditor::FindSplit(double dMax) const
{
    // The ranges ascend, so the first that holds dMax is found by halving.
    qint32 lo = 1, hi = m_items.Count() + 1;
    while (lo < hi) {
        const qint32 mid = lo + (hi - lo) / 2;
        const auto &item = m_items.ItemAt(mid);
        if (item->IsMax() || item->Max() >= dMax)
            hi = mid;
        else
            lo = mid + 1;
    }
    return lo <= m_items.Count() ? lo : 0;
}

std::shared_ptr<zelRangeItem> zelRangeEditor::Split(double dMax, const QVariant &vValue,
                                                    bool bInterpolate, quint32 lColor,
                                                    const QString &sLabel)
{
    const qint32 pos = FindSplit(dMax);
    if (pos == 0)
        throw zelError(zelError::InvalidProcedureCall, QString(),
                       QStringLiteral("The upper bound lies above the last range"));
    const std::shared_ptr<zelRangeItem> found = m_items.ItemAt(pos);
    auto upper = std::make_shared<zelRangeItem>();
    zelLegendAccess::SetIdentity(*upper, ++m_nextIdentity);
    upper->SetMin(dMax);
    upper->SetMax(found->Max());
    upper->SetIsMax(found->IsMax());
    upper->SetValue(found->Value());
    upper->SetColor(found->Color());
    upper->SetLabel(found->Label());
    upper->SetInterpolate(bInterpolate);
    upper->SetIncludeLowerBound(found->IncludeLowerBound());

    found->SetMax(dMax);
    found->SetIsMax(false);
    found->SetValue(vValue);
    found->SetColor(lColor);
    found->SetLabel(sLabel);

    m_items.Add(upper, upper->Key(), pos < m_items.Count() ? pos + 1 : 0);
    RefreshIndices(pos + 1);
    RowChanged(pos - 1);
    RowsInserted(pos, 1);
    EnableButtons();
    return found;
}

void zelRangeEditor::RefreshIndices(qint32 from)
{
    for (qint32 i = std::max(from, 1); i <= m_items.Count(); ++i)
        m_items.ItemAt(i)->SetIndex(i);
}

void zelRangeEditor::RefreshItem(const QString &sKey)
{
    zel::Trail t(this, "RefreshItem");
    t.Run([&] { RowChanged(m_items.IndexOfKey(sKey) - 1); });
}

QString zelRangeEditor::Bound(double d) const
{
    return zel::FormatNumber(d, m_srcFormat);
}

QString zelRangeEditor::ItemText(int row, Column c) const
{
    const auto item = m_items.ItemAt(row + 1);
    if (!item)
        return {};
    switch (c) {
    case Column::Lower:
        return item->IsMin() ? QStringLiteral("Min") : Bound(item->Min());
    case Column::Upper:
        return item->IsMax() ? QStringLiteral("Max") : Bound(item->Max());
    case Column::Value:
        return ValueText(item->Value());
    case Column::Label:
        return item->Label();
    default:
        return {};
    }
}

std::optional<quint32> zelRangeEditor::ItemColour(int row) const
{
    const auto item = m_items.ItemAt(row + 1);
    return item ? std::optional<quint32>(item->Color()) : std::nullopt;
}

bool zelRangeEditor::ItemEditable(int row, Column c) const
{
    return row >= 0 && row < m_items.Count() &&
           (c == Column::Upper || c == Column::Value || c == Column::Label);
}

void zelRangeEditor::SetItemColour(int row, quint32 colour)
{
    if (const auto item = m_items.ItemAt(row + 1))
        item->SetColor(colour);
}

bool zelRangeEditor::AfterCellEdit(int row, Column c, const QString &text)
{
    const auto item = m_items.ItemAt(row + 1);
    if (c == Column::Value) {
        const QVariant v = zelLegendText::ValueFromText(text, DstScalar());
        if (v == item->Value() && v.metaType() == item->Value().metaType())
            return false;
        item->SetValue(v);
        RowChanged(row);
        return true;
    }
    if (c == Column::Label) {
        if (text == item->Label())
            return false;
        item->SetLabel(text);
        RowChanged(row);
        return true;
    }
    const auto next = m_items.ItemAt(row + 2);
    const bool open = text.compare(QLatin1String("max"), Qt::CaseInsensitive) == 0;
    if (open && !next) {
        // The last range opens upwards again, or stays open.
        const bool changed = !item->IsMax();
        item->SetIsMax(true);
        RowChanged(row);
        return changed;
    }
    double d = zelRangeItem::OpenMax;
    if (!open && !zelLegendText::Number(text, d)) {
        zel::platform().MessageBox(QStringLiteral("Please enter a numeric value."), kTitle, this);
        return false;
    }
    if (d <= item->Min()) {
        zel::platform().MessageBox(
            QStringLiteral(
                "Please enter an upper value that is greater than the \r\nlower value (") +
                Bound(item->Min()) + QStringLiteral(")."),
            kTitle, this);
        return false;
    }
    if (next && d >= next->Max()) {
        zel::platform().MessageBox(
            QStringLiteral("Please enter a value that is less than the upper value\r\nof the next "
                           "higher range (") +
                Bound(next->Max()) + QStringLiteral(")."),
            kTitle, this);
        return false;
    }
    if (d == item->Max() && !item->IsMax())
        return false;
    item->SetMax(d);
    item->SetIsMax(false);
    RowChanged(row);
    if (next) {
        next->SetMin(d);
        RowChanged(row + 1);
    }
    return true;
}

void zelRangeEditor::Insert()
{
    const int row = CurrentRow();
    if (!m_couldNew || row < 0)
        return;
    const auto item = m_items.ItemAt(row + 1);
    if (item->IsMax())
        return;
    UserEdit([&] {
        return Create(item->Max(), zel::Missing(), item->Interpolate(), 0, QString()) != nullptr;
    });
}

void zelRangeEditor::Remove()
{
    const int row = CurrentRow();
    if (row < 0)
        return;
    const qint32 pos = row + 1;
    const auto item = m_items.ItemAt(pos);
    // The open ends stay; so does a last range the user closed.
    if (item->IsMin() || item->IsMax() || pos == 1 || pos == m_items.Count())
        return;
    UserEdit([&] {
        const auto after = m_items.ItemAt(pos + 1);
        const auto before = m_items.ItemAt(pos - 1);
        m_items.RemoveAt(pos);
        RowsRemoved(row, 1);
        before->SetMax(after->Min());
        after->SetMin(before->Max());
        RefreshIndices(pos);
        RowChanged(row - 1);
        RowChanged(row);
        EnableButtons();
        return true;
    });
}

std::any zelRangeEditor::SaveItems() const
{
    return Saved{zelLegendSnapshot<zelRangeItem>::Take(m_items), m_interpolate,
                 m_includeLowerBound};
}

void zelRangeEditor::RestoreItems(const std::any &state)
{
    const auto &saved = std::any_cast<const Saved &>(state);
    saved.ranges.PutBack(m_items);
    RefreshIndices(1);
    m_interpolate = saved.interpolate;
    m_chkInterpolate->setChecked(m_interpolate);
    if (m_includeLowerBound != saved.includeLowerBound) {
        m_includeLowerBound = saved.includeLowerBound;
        m_chkIncludeLowerBound->setChecked(m_includeLowerBound);
        Recaption();
    }
    EnableButtons();
}

void zelRangeEditor::EnableButtons()
{
    InsertButton()->setEnabled(m_couldNew && m_items.Count() > 1);
    RemoveButton()->setEnabled(m_items.Count() > 2);
}

void zelRangeEditor::Recaption()
{
    const bool lower = m_includeLowerBound;
    SetCaption(Column::Lower, lower ? QStringLiteral("Source >=  ") : QStringLiteral("Source >  "));
    SetCaption(Column::Upper, lower ? QStringLiteral("Source <  ") : QStringLiteral("Source <=  "));
}

void zelRangeEditor::chkInterpolate_Click()
{
    zel::Trail t(this, "chkInterpolate_Click");
    t.Run([&] {
        UserEdit([&] {
            m_interpolate = m_chkInterpolate->isChecked();
            // The open ends keep their own flag.
            for (const auto &item : m_items)
                if (!item->IsMin() && !item->IsMax())
                    item->SetInterpolate(m_interpolate);
            MarkChanged(QStringLiteral("Interpolate"));
            return true;
        });
    });
}

void zelRangeEditor::chkIncludeLowerBound_Click()
{
    zel::Trail t(this, "chkIncludeLowerBound_Click");
    t.Run([&] {
        UserEdit([&] {
            m_includeLowerBound = m_chkIncludeLowerBound->isChecked();
            Recaption();
            zelLegendEditor::Refresh();
            for (const auto &item : m_items)
                item->SetIncludeLowerBound(m_includeLowerBound);
            MarkChanged(QStringLiteral("IncludeLowerBound"));
            return true;
        });
    });
}
