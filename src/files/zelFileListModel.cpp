#include "files/zelFileListModel_p.h"

#include <QLocale>

namespace zel {
QString FileDateText(const QDateTime &local)
{
    return QLocale::c().toString(local, QStringLiteral("MMM dd, yyyy HH:mm:ss"));
}
} // namespace zel

zelFileListModel::zelFileListModel(QObject *parent) : QAbstractTableModel(parent) {}

void zelFileListModel::SetList(std::shared_ptr<zelFileList> list)
{
    beginResetModel();
    m_list = std::move(list);
    endResetModel();
}

void zelFileListModel::Reload()
{
    beginResetModel();
    endResetModel();
}

int zelFileListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_list ? 0 : m_list->Count();
}

int zelFileListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 3;
}

QVariant zelFileListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const zelFile::Ptr file = FileAt(index.row());
    if (!file)
        return {};
    if (role == Qt::DisplayRole) {
        switch (index.column()) {
        case 0:
            return file->Name();
        case 1:
            return file->SizeAsString();
        default:
            return zel::FileDateText(file->FileDate());
        }
    }
    if (role == Qt::TextAlignmentRole && index.column() == 1)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole && index.column() == 0)
        return file->FullPath();
    return {};
}

QVariant zelFileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case 0:
        return QStringLiteral("Name");
    case 1:
        return QStringLiteral("Size");
    default:
        return QStringLiteral("Date");
    }
}
