#pragma once

// The grid list's delegate: check boxes in the middle of their cells, the
// selection as HighlightSelection and SelectionCol say, and the cell
// editors (drop-down lists, number fields, text).

#include <QStyledItemDelegate>

struct zelGridListPrivate;
class zelGridModel;

class zelGridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    zelGridDelegate(const zelGridListPrivate &d, zelGridModel *model, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    const zelGridListPrivate &d;
    zelGridModel *m_model;
};
