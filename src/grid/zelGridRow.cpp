#include "grid/zelGridRow.h"

#include "core/zelConvert.h"
#include "core/zelShared.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelGridRow);

zelGridRow::zelGridRow(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelGridRow>();
}

zelGridRow::~zelGridRow() = default;

void zelGridRow::SetData(const QString &v)
{
    m_data = v;
    m_cellColours.reset();
}

void zelGridRow::SetSelected(const QVariant &v)
{
    zel::Trail t(this, "Selected Let");
    t.Run([&] { m_selected = zel::CBool(v); });
}

void zelGridRow::SetChecked(const QVariant &v)
{
    zel::Trail t(this, "Checked Let");
    t.Run([&] { m_checked = zel::CBool(v); });
}

void zelGridRow::SetRowColor(const QVariant &v)
{
    zel::Trail t(this, "RowColor Let");
    // Colours are 32-bit patterns: system colours read as negative numbers.
    t.Run([&] {
        if (v.metaType().id() == QMetaType::UInt)
            m_rowColor = v.toUInt();
        else
            m_rowColor = quint32(zel::CLng(v));
    });
}

QStringView zelGridRow::Cell(int column) const
{
    if (column < 0)
        return {};
    const QChar *p = m_data.constData();
    const QChar *end = p + m_data.size();
    for (int c = 0; c < column; ++c) {
        while (p != end && *p != QLatin1Char('\t'))
            ++p;
        if (p == end)
            return {};
        ++p;
    }
    const QChar *b = p;
    while (p != end && *p != QLatin1Char('\t'))
        ++p;
    return QStringView(b, p);
}

void zelGridRow::SetCell(int column, const QString &text)
{
    if (column < 0)
        return;
    qsizetype start = 0;
    for (int c = 0; c < column; ++c) {
        const qsizetype tab = m_data.indexOf(QLatin1Char('\t'), start);
        if (tab < 0) {
            // Fewer cells than columns: pad with empty ones.
            m_data += QString(column - c, QLatin1Char('\t'));
            start = m_data.size();
            break;
        }
        start = tab + 1;
    }
    qsizetype stop = m_data.indexOf(QLatin1Char('\t'), start);
    if (stop < 0)
        stop = m_data.size();
    m_data.replace(start, stop - start, text);
}

bool zelGridRow::CellColour(int column, quint32 *colour) const
{
    if (!m_cellColours)
        return false;
    for (const auto &[c, v] : *m_cellColours)
        if (c == column) {
            if (colour)
                *colour = v;
            return true;
        }
    return false;
}

void zelGridRow::SetCellColour(int column, quint32 colour)
{
    if (!m_cellColours)
        m_cellColours = std::make_unique<std::vector<std::pair<int, quint32>>>();
    for (auto &[c, v] : *m_cellColours)
        if (c == column) {
            v = colour;
            return;
        }
    m_cellColours->emplace_back(column, colour);
}
