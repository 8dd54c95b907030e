#pragma once

// The form in which the user edits a list of synchronised folders: a grid
// list of the folders with its Add, Remove and Properties buttons, and OK and
// Cancel. It works on copies; the caller takes Folders() after OK, so Cancel
// changes nothing. Add and Properties ask for the two folders through the
// platform's folder dialog; the name, direction, file pattern and whether a
// folder is enabled are edited in the grid.

#include "syncfolders/zelSyncFolders.h"

#include <QDialog>
#include <QList>
#include <QString>

#include <memory>

class zelGridList;
class zelStdButtons;

class ZELCTRL_EXPORT frmSyncFolder : public QDialog
{
    Q_OBJECT

public:
    explicit frmSyncFolder(const zelSyncFolders &folders, QWidget *parent = nullptr);
    ~frmSyncFolder() override;

    // The folders as the user left them, in the grid's order.
    QList<std::shared_ptr<zelSyncFolder>> Folders() const { return m_folders; }

    // The grid's columns.
    enum Column
    {
        ColName,
        ColLocal,
        ColSecond,
        ColDirection,
        ColPattern,
        ColEnabled
    };

private:
    void AddFolder(qint32 lRow);
    void EditFolder(qint32 lRow);
    void RemoveFolder(qint32 lRow);
    void EditCell(qint32 lRow, qint32 lColumn, QString &sText);
    // Asks for both folders, starting at folder's; false when the user
    // cancelled or chose folders that cannot be kept in step (told why).
    bool ChooseFolders(zelSyncFolder &folder);
    void ShowRow(qint32 lRow);
    QString RowText(const zelSyncFolder &f) const;
    QString UniqueName(const QString &wanted, const zelSyncFolder *self) const;

    zelGridList *m_grid;
    zelStdButtons *m_buttons;
    QList<std::shared_ptr<zelSyncFolder>> m_folders; // grid row n is item n - 1
};
