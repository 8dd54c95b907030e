#pragma once

// A colour swatch that a host puts beside a setting. It shows the chosen
// colour; a click on it, or Space or Enter while it has the focus, opens the
// colour dialog preset to that colour. A confirmed colour becomes BackColor
// and raises Click, also when it is the colour already shown; a cancelled
// dialog leaves the colour as it was and raises nothing.

#include "core/zelProperties.h"
#include "zelCtrlExport.h"

#include <QVariant>
#include <QWidget>

class QFrame;

class ZELCTRL_EXPORT zelColorPicker : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_CLASSINFO("DispId.BackColor", "0x68030000")
    Q_CLASSINFO("DispId.Enabled", "0x68030001")
    Q_CLASSINFO("DispId.Click", "1")

    Q_PROPERTY(QVariant BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)

public:
    explicit zelColorPicker(QWidget *parent = nullptr);
    ~zelColorPicker() override;

    // The chosen colour, 0x00BBGGRR, or a system colour 0x8000000x shown in
    // the palette's colour (an unknown index shows the window background).
    // By default 0 (black). Written as a number, a negative 32-bit number
    // (the classic form of a system colour) or a QColor; other values are
    // refused with a logged error and the colour stays.
    quint32 BackColor() const { return m_colour; }
    void SetBackColor(quint32 v);
    ZEL_LATE_BOUND(BackColor)
    // The control's own enabled state; by default true. Disabling paints the
    // swatch with the button face (a BackColor written while disabled shows
    // at once); BackColor still answers the chosen colour.
    bool Enabled() const;
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)

    // The colour the swatch shows at present.
    quint32 ShownColor() const { return m_shown; }

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

    QSize sizeHint() const override;

signals:
    // A colour was confirmed in the dialog. Not raised when it was cancelled.
    void Click();
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }

    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Picture1_Click();
    void paintSwatch(quint32 colour);

    QFrame *m_picture1 = nullptr;
    quint32 m_colour = 0;
    quint32 m_shown = 0;
    bool m_pressed = false;
};
