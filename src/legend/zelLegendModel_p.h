#pragma once

// The model behind extRanges: it holds nothing of its own and reads every
// cell from the editor, so a range or entry lives once, in its item.

#include "legend/zelLegendEditor.h"

#include <QAbstractTableModel>

class zelLegendModel : public QAbstractTableModel
{
public:
    explicit zelLegendModel(zelLegendEditor *editor) : QAbstractTableModel(editor), m_e(editor) {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() || m_resetting || !Live ? 0 : m_e->GridRows();
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() || !Live ? 0 : int(m_e->m_columns.size());
    }
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;

    void BeginReset()
    {
        beginResetModel();
        m_resetting = true;
    }
    void EndReset()
    {
        m_resetting = false;
        endResetModel();
    }
    void Inserted(int first, int count)
    {
        beginInsertRows({}, first, first + count - 1);
        endInsertRows();
    }
    void Removed(int first, int count)
    {
        // The rows are gone from the items already: the view is told after,
        // and data() answers nothing for a row past the end meanwhile.
        beginRemoveRows({}, first, first + count - 1);
        endRemoveRows();
    }
    void RowChanged(int row) { emit dataChanged(index(row, 0), index(row, columnCount() - 1)); }
    void HeaderChanged() { emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1); }

    QStringList captions;
    // False while the editor is not whole: before its first columns are set
    // and once it is being destroyed.
    bool Live = false;

private:
    zelLegendEditor *m_e;
    bool m_resetting = false;
};
