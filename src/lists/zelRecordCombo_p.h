#pragma once

// The two widgets behind zelRecordCombo: the combo box that shows the chosen
// row, and the drop-down that shows every row as a tree.

#include <QComboBox>
#include <QFrame>

#include <functional>

class QTreeView;
class zelRecordCombo;
class zelRecordModel;

// A combo box that opens the control's own drop-down, and whose keys the
// control steps through the rows with: QComboBox alone would walk only the
// top level, and would do it without telling anyone.
class zelRecordComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit zelRecordComboBox(QWidget *parent);

    std::function<void()> OpenPopup;
    std::function<void()> ClosePopup;
    // A key in the closed combo; true when the control took it.
    std::function<bool(QKeyEvent *)> Key;

    void showPopup() override;
    void hidePopup() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    // The wheel would choose rows as the pointer passes over the combo.
    void wheelEvent(QWheelEvent *event) override;
};

// The drop-down: a tree view of the rows, any row at any depth to be chosen
// by a click, Enter or Space; Escape or a click elsewhere closes it.
class zelRecordPopup : public QFrame
{
    Q_OBJECT

public:
    zelRecordPopup(zelRecordCombo *owner, zelRecordModel *model, bool tree);

    QTreeView *View() const { return m_view; }
    // Opens under the combo box, the given row current.
    void Open(QWidget *below, int width, int height, int currentHandle);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void chooseAt(const QModelIndex &index);

    zelRecordCombo *m_owner;
    zelRecordModel *m_model;
    QTreeView *m_view;
};
