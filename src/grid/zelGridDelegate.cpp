#include "grid/zelGridDelegate_p.h"

#include "grid/zelGridList_p.h"
#include "grid/zelGridModel_p.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>

zelGridDelegate::zelGridDelegate(const zelGridListPrivate &d, zelGridModel *model, QObject *parent)
    : QStyledItemDelegate(parent), d(d), m_model(model)
{}

QWidget *zelGridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    const int column = index.column();
    if (column < 0 || column >= int(m_model->Formats().size()))
        return QStyledItemDelegate::createEditor(parent, option, index);
    const zelGridColumnFormat &format = m_model->Formats()[size_t(column)];
    if (!format.Combo.isEmpty()) {
        auto *combo = new QComboBox(parent);
        combo->setObjectName(QStringLiteral("cboEdit"));
        combo->setEditable(format.ComboEditable);
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->setMaxVisibleItems(20);
        combo->addItems(format.Combo);
        return combo;
    }
    auto *line = new QLineEdit(parent);
    line->setObjectName(QStringLiteral("txtEdit"));
    line->setFrame(false);
    if (zelGridType::IsNumeric(format.DataType)) {
        const bool whole = format.DataType == zelGridType::Integer ||
                           format.DataType == zelGridType::Long || format.Decimals == 0;
        const QString pattern =
            whole ? QStringLiteral("-?\\d*")
                  : QStringLiteral("-?\\d*(\\.\\d{0,%1})?").arg(std::max(format.Decimals, 1));
        line->setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), line));
    }
    return line;
}

void zelGridDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        const int i = combo->findText(text);
        if (i >= 0)
            combo->setCurrentIndex(i);
        else if (combo->isEditable())
            combo->setEditText(text);
        return;
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->setText(text);
        line->selectAll();
        return;
    }
    QStyledItemDelegate::setEditorData(editor, index);
}

void zelGridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                   const QModelIndex &index) const
{
    if (auto *combo = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, combo->currentText(), Qt::EditRole);
        return;
    }
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        model->setData(index, line->text(), Qt::EditRole);
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

void zelGridDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!(option->state & QStyle::State_Selected))
        return;
    bool highlight = true;
    switch (d.highlight) {
    case ZEL_Highlight_Never:
        highlight = false;
        break;
    case ZEL_Highlight_Always:
        option->state |= QStyle::State_Active;
        break;
    default: {
        const QWidget *view = option->widget;
        const QWidget *focus = QApplication::focusWidget();
        highlight = view && focus && (focus == view || view->isAncestorOf(focus));
        break;
    }
    }
    const int col = d.selectionCol;
    if (highlight && col >= 0 && col < int(m_model->Formats().size()) && index.column() != col)
        highlight = false;
    if (!highlight)
        option->state &= ~QStyle::State_Selected;
}

void zelGridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    if (!m_model->IsBoolean(index.column())) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    // Check boxes stand in the middle of their cells.
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const Qt::CheckState state = opt.checkState;
    opt.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    opt.text.clear();
    const QWidget *widget = opt.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    QStyleOptionViewItem check = opt;
    const int w = style->pixelMetric(QStyle::PM_IndicatorWidth, &opt, widget);
    const int h = style->pixelMetric(QStyle::PM_IndicatorHeight, &opt, widget);
    check.rect = QRect(opt.rect.center().x() - w / 2, opt.rect.center().y() - h / 2, w, h);
    check.state &= ~QStyle::State_HasFocus;
    check.state |= state == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check, painter, widget);
}
