#include "legend/zelValueEditor.h"

#include "core/zelTrail.h"
#include "legend/zelLegendAccess_p.h"
#include "legend/zelLegendText_p.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QAbstractButton>
#include <QTableView>

ZEL_REGISTER_PROGID(zelValueEditor);

namespace {

using Column = zelLegendEditor::Column;

const QString kNewRow = QStringLiteral("<new>");

} // namespace

zelValueEditor::zelValueEditor(QWidget *parent) : zelLegendEditor(parent)
{
    zel::RegisterShared<zelValueItem>();
    Clear();
}

zelValueEditor::~zelValueEditor() = default;

const zel::zelPropertyTable &zelValueEditor::Properties() const
{
    using V = zelValueEditor;
    using zel::Prop;
    static const zel::zelPropertyTable table({
        Prop("Enabled", &V::Enabled, &V::SetEnabled).Persist().Default(true).With(zel::Init),
        Prop("DstScalar", &V::DstScalar, &V::SetDstScalar).Persist().Default(true).With(zel::Init),
        Prop("DstFormat", &V::DstFormat, &V::SetDstFormat)
            .Persist()
            .Default(QString())
            .With(zel::Init),
        Prop("ShowValue", &V::ShowValue, &V::SetShowValue).Persist().Default(true).With(zel::Init),
        Prop("ShowLabel", &V::ShowLabel, &V::SetShowLabel).Persist().Default(false).With(zel::Init),
        Prop("Count", &V::Count),
    });
    return table;
}

void zelValueEditor::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [this] { setEnabled(m_enabled); });
}

std::shared_ptr<zelValueItem> zelValueEditor::ItemBySource(const QString &sSource) const
{
    std::shared_ptr<zelValueItem> found;
    zel::Trail t(this, "ItemBySource");
    t.Run([&] {
        for (const auto &item : m_items)
            if (item->Source().compare(sSource, Qt::CaseInsensitive) == 0) {
                found = item;
                return;
            }
    });
    return found;
}

std::shared_ptr<zelValueItem> zelValueEditor::Item(const QVariant &vKey) const
{
    std::shared_ptr<zelValueItem> item;
    zel::Trail t(this, "Item Get");
    t.Run([&] { item = m_items.Item(vKey); });
    return item;
}

std::shared_ptr<zelGridEnumerator> zelValueEditor::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}

void zelValueEditor::Clear()
{
    zel::Trail t(this, "Clear");
    t.Run([&] {
        HostChange();
        const int rows = m_items.Count();
        m_items.Clear();
        RowsRemoved(0, rows);
        SetGridColumns({Column::Source, Column::Value, Column::Label, Column::Style},
                       {QStringLiteral("Source"), QStringLiteral("Value"), QStringLiteral("Label"),
                        QStringLiteral("Style")});
    });
}

std::shared_ptr<zelValueItem> zelValueEditor::Create(const QString &sSource, const QVariant &vValue,
                                                     quint32 lColor, const QString &sLabel)
{
    std::shared_ptr<zelValueItem> item;
    zel::Trail t(this, "Create");
    t.Run([&] {
        HostChange();
        item = std::make_shared<zelValueItem>();
        zelLegendAccess::SetIdentity(*item, ++m_nextIdentity);
        zelLegendAccess::SetSource(*item, sSource);
        item->SetValue(vValue);
        item->SetColor(lColor);
        item->SetLabel(sLabel);
        m_items.Add(item, item->Key());
        RowsInserted(m_items.Count() - 1, 1);
    });
    return item;
}

void zelValueEditor::RefreshItem(const QString &sKey)
{
    zel::Trail t(this, "RefreshItem");
    t.Run([&] { RowChanged(m_items.IndexOfKey(sKey) - 1); });
}

QString zelValueEditor::ItemText(int row, Column c) const
{
    const auto item = m_items.ItemAt(row + 1);
    if (!item)
        return c == Column::Source && row == m_items.Count() ? kNewRow : QString();
    switch (c) {
    case Column::Source:
        return item->Source();
    case Column::Value:
        return ValueText(item->Value());
    case Column::Label:
        return item->Label();
    default:
        return {};
    }
}

std::optional<quint32> zelValueEditor::ItemColour(int row) const
{
    const auto item = m_items.ItemAt(row + 1);
    return item ? std::optional<quint32>(item->Color()) : std::nullopt;
}

bool zelValueEditor::ItemEditable(int row, Column c) const
{
    if (row == m_items.Count())
        return c == Column::Source;
    return row >= 0 && row < m_items.Count() && c != Column::Style;
}

void zelValueEditor::SetItemColour(int row, quint32 colour)
{
    if (const auto item = m_items.ItemAt(row + 1))
        item->SetColor(colour);
}

bool zelValueEditor::SourceTaken(const QString &source, const zelValueItem *besides) const
{
    const auto other = ItemBySource(source);
    if (!other || other.get() == besides)
        return false;
    zel::platform().MessageBox(QStringLiteral("The source value \"") + source +
                                   QStringLiteral("\" is in the legend already."),
                               QStringLiteral("Invalid Data"), const_cast<zelValueEditor *>(this));
    return true;
}

bool zelValueEditor::AfterCellEdit(int row, Column c, const QString &text)
{
    const auto item = m_items.ItemAt(row + 1);
    if (c == Column::Source) {
        // A source is typed on the "<new>" row or renamed; an empty text, the
        // placeholder itself and a source the legend has already change nothing.
        const QString source = text.trimmed();
        if (source.isEmpty() || source.compare(kNewRow, Qt::CaseInsensitive) == 0 ||
            (item && item->Source() == source) || SourceTaken(source, item.get()))
            return false;
        if (!item)
            return Create(source) != nullptr;
        zelLegendAccess::SetSource(*item, source);
    } else if (c == Column::Value) {
        const QVariant v = zelLegendText::ValueFromText(text, DstScalar());
        if (v == item->Value() && v.metaType() == item->Value().metaType())
            return false;
        item->SetValue(v);
    } else {
        if (text == item->Label())
            return false;
        item->SetLabel(text);
    }
    RowChanged(row);
    return true;
}

void zelValueEditor::Insert()
{
    // The user types the new source into the "<new>" row.
    const int row = m_items.Count();
    SetCurrentRow(row);
    Grid()->edit(Grid()->model()->index(row, 0));
}

void zelValueEditor::Remove()
{
    const int row = CurrentRow();
    if (row < 0 || row >= m_items.Count())
        return;
    UserEdit([&] {
        m_items.RemoveAt(row + 1);
        RowsRemoved(row, 1);
        return true;
    });
}

std::any zelValueEditor::SaveItems() const
{
    return zelLegendSnapshot<zelValueItem>::Take(m_items);
}

void zelValueEditor::RestoreItems(const std::any &state)
{
    std::any_cast<const zelLegendSnapshot<zelValueItem> &>(state).PutBack(m_items);
}
