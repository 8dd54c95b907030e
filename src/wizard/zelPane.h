#pragma once

// The library's ready-made wizard pane: a container on which the host draws
// the widgets of one wizard step. It answers the whole pane contract
// (zelPaneContract), turns the wizard's enter and leave calls into the events
// EnterPane and LeavePane, and asks its wizard to re-read it whenever a Can
// or Could property changes at run time.

#include "wizard/zelPaneContract.h"
#include "zelCtrlExport.h"

class ZELCTRL_EXPORT zelPane : public zelPaneContract
{
    Q_OBJECT
    Q_CLASSINFO("Description.HeaderTitle", "Returns/sets the Title displayed in the header area.")
    Q_CLASSINFO("Description.HeaderDescription",
                "Returns/sets the description displayed in the header area.")
    Q_CLASSINFO("Description.Resize",
                "Occurs when a form is first displayed or the size of an object changes.")

public:
    explicit zelPane(QWidget *parent = nullptr);
    ~zelPane() override;

    // Repaints the pane.
    Q_INVOKABLE void Refresh();

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

signals:
    void Paint();
    void Resize();
    void Click();
    void DblClick();
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void raiseMouse(const char *procedure, QMouseEvent *event,
                    void (zelPane::*signal)(qint16 &, qint16 &, float &, float &));
};
