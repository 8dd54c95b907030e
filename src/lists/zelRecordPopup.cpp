#include "lists/zelRecordCombo.h"
#include "lists/zelRecordCombo_p.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

// Rows are 16 pixels high, every one alike, so the view never measures them.
class zelRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize s = QStyledItemDelegate::sizeHint(option, index);
        s.setHeight(16);
        return s;
    }
};

// A hidden drop-down does not lay out its rows: a column resized before a
// fill would otherwise have the view walk a million rows on a timer while
// nobody sees them. What it owes is done when it is shown.
class zelPopupView : public QTreeView
{
public:
    using QTreeView::QTreeView;

protected:
    void updateGeometries() override
    {
        if (!isVisible()) {
            m_owed = true;
            return;
        }
        m_owed = false;
        QTreeView::updateGeometries();
    }
    void showEvent(QShowEvent *event) override
    {
        QTreeView::showEvent(event);
        if (m_owed)
            updateGeometries();
    }

private:
    bool m_owed = false;
};

} // namespace

zelRecordComboBox::zelRecordComboBox(QWidget *parent) : QComboBox(parent)
{
    // It holds one item at most; nothing to measure.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(1);
}

void zelRecordComboBox::showPopup()
{
    if (OpenPopup)
        OpenPopup();
}

void zelRecordComboBox::hidePopup()
{
    if (ClosePopup)
        ClosePopup();
    QComboBox::hidePopup();
}

void zelRecordComboBox::keyPressEvent(QKeyEvent *event)
{
    if (Key && Key(event))
        return;
    QComboBox::keyPressEvent(event);
}

void zelRecordComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

zelRecordPopup::zelRecordPopup(zelRecordCombo *owner, zelRecordModel *model, bool tree)
    : QFrame(owner, Qt::Popup), m_owner(owner), m_model(model), m_view(new zelPopupView(this))
{
    setFrameShape(QFrame::Box);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_view);
    m_view->setModel(model);
    m_view->setItemDelegate(new zelRowDelegate(m_view));
    m_view->setUniformRowHeights(true);
    m_view->setIconSize(QSize(16, 16));
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setAllColumnsShowFocus(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setRootIsDecorated(tree);
    m_view->setItemsExpandable(tree);
    m_view->setExpandsOnDoubleClick(false);
    m_view->header()->setSectionsMovable(false);
    // A column string may ask for narrow columns.
    m_view->header()->setMinimumSectionSize(1);
    if (!tree)
        m_view->setIndentation(0);
    // Expansion lives in the model, so that it outlasts the reset that ends
    // an update; the view shows it and reports the user's.
    connect(model, &zelRecordModel::ExpandRequested, m_view,
            [this](const QModelIndex &index, bool expanded) {
                if (m_view->isExpanded(index) != expanded)
                    m_view->setExpanded(index, expanded);
            });
    connect(m_view, &QTreeView::expanded, model, [model](const QModelIndex &index) {
        if (!model->IsExpanded(model->HandleOf(index)))
            model->SetExpanded(model->HandleOf(index), true);
    });
    connect(m_view, &QTreeView::collapsed, model, [model](const QModelIndex &index) {
        if (model->IsExpanded(model->HandleOf(index)))
            model->SetExpanded(model->HandleOf(index), false);
    });
    m_view->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);
}

void zelRecordPopup::Open(QWidget *below, int width, int height, int currentHandle)
{
    QPoint pos = below->mapToGlobal(QPoint(0, below->height()));
    if (const QScreen *screen = below->screen()) {
        const QRect avail = screen->availableGeometry();
        if (pos.y() + height > avail.bottom() && pos.y() - below->height() - height >= avail.top())
            pos.ry() -= below->height() + height;
        pos.setX(qBound(avail.left(), pos.x(), qMax(avail.left(), avail.right() - width)));
    }
    setGeometry(QRect(pos, QSize(width, height)));
    show();
    m_view->setFocus(Qt::PopupFocusReason);
    if (m_model->IsRow(currentHandle)) {
        for (int p = m_model->ParentOf(currentHandle); p; p = m_model->ParentOf(p))
            m_model->SetExpanded(p, true);
        const QModelIndex index = m_model->IndexOf(currentHandle);
        m_view->setCurrentIndex(index);
        m_view->scrollTo(index, QAbstractItemView::PositionAtCenter);
    } else {
        m_view->clearSelection();
        m_view->setCurrentIndex(QModelIndex());
        m_view->scrollToTop();
    }
}

void zelRecordPopup::chooseAt(const QModelIndex &index)
{
    const int handle = m_model->HandleOf(index);
    if (!handle || !m_model->IsEnabled(handle))
        return;
    hide();
    m_owner->comboBox()->setFocus(Qt::PopupFocusReason);
    m_owner->choose(handle);
}

bool zelRecordPopup::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_view->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        const QPoint pos = mouse->position().toPoint();
        const QModelIndex index = m_view->indexAt(pos);
        // A click on a branch mark only opens or closes the branch.
        if (mouse->button() == Qt::LeftButton && index.isValid() &&
            m_view->visualRect(index).contains(pos)) {
            chooseAt(index);
            return true;
        }
    } else if (watched == m_view && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        switch (key->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
        case Qt::Key_Select:
            chooseAt(m_view->currentIndex());
            return true;
        case Qt::Key_Escape:
        case Qt::Key_F4:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            hide();
            m_owner->comboBox()->setFocus(Qt::PopupFocusReason);
            return true;
        case Qt::Key_Up:
            if (key->modifiers() & Qt::AltModifier) {
                hide();
                return true;
            }
            break;
        default:
            break;
        }
    }
    return QFrame::eventFilter(watched, event);
}
