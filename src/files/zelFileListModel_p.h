#pragma once

// The rows of the explorer's file list: the model reads the zelFileList
// itself, row r showing the file at position r + 1, so a folder of many
// files is held once, and the texts are made only for the rows on screen.

#include "files/zelFileList.h"

#include <QAbstractTableModel>

#include <memory>

class zelFileListModel : public QAbstractTableModel
{
public:
    explicit zelFileListModel(QObject *parent = nullptr);

    // Shows another list (or none).
    void SetList(std::shared_ptr<zelFileList> list);
    const std::shared_ptr<zelFileList> &List() const { return m_list; }
    // The rows start again from the list as it is now.
    void Reload();

    zelFile::Ptr FileAt(int row) const { return m_list ? m_list->At(row + 1) : zelFile::Ptr(); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    std::shared_ptr<zelFileList> m_list;
};

namespace zel {
// "MMM DD, YYYY HH:MM:SS" in English month names and a 24-hour clock:
// "Mar 04, 2021 17:05:09".
QString FileDateText(const QDateTime &local);
} // namespace zel
