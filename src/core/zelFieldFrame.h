#pragma once

// The labelled field frame shared by the input box, the date field, the
// combo and the combo tree: an input widget flanked by a prefix label (with
// an automatic colon) and a suffix label (with automatic parentheses), in a
// control of fixed height. The arithmetic is a plain function in twips;
// zelLabelledField applies it to widgets.

#include "core/zelProperties.h"
#include "zelCtrlExport.h"

#include <QRect>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>

class QKeyEvent;
class QLabel;
class QLineEdit;

// The frame members of a control, with the defaults of a newly placed one.
struct ZELCTRL_EXPORT zelFrameProps
{
    QString Prefix;
    qint16 PrefixAlignment = 1; // 0 left, 1 right, 2 centre
    qint32 PrefixWidth = 0;     // twips; 0 = size to the text
    bool PrefixColon = false;
    bool PrefixBold = false;
    QString Suffix;
    qint16 SuffixAlignment = 0;
    qint32 SuffixWidth = 0;
    bool SuffixParens = false;
    bool SuffixBold = false;
    qint32 Margin = 60; // stored and persisted only
    qint16 Width = 0;   // stored and persisted only
    bool SendKeysTab = true;
};

// Where the frame puts its parts, in twips relative to the control.
struct ZELCTRL_EXPORT zelFrameLayout
{
    QString PrefixText;
    QString SuffixText;
    bool PrefixVisible = false;
    bool SuffixVisible = false;
    qint16 PrefixSpace = 0;
    qint32 SuffixSpace = 0;
    QRect PrefixRect;
    QRect SuffixRect;
    QRect InputRect;

    bool operator==(const zelFrameLayout &) const = default;
};

inline constexpr qint32 zelFrameHeight = 315;   // the frame's fixed height
inline constexpr qint32 zelFrameGap = 60;       // between a label and the input
inline constexpr qint32 zelFrameLabelTop = 60;  // the labels' top
inline constexpr qint32 zelFrameMinInput = 400; // the input's least width

// The width in twips that a label needs to show a text, plain or bold.
using zelTextWidth = std::function<qint32(const QString &text, bool bold)>;

ZELCTRL_EXPORT QString zelPrefixText(const zelFrameProps &p);
ZELCTRL_EXPORT QString zelSuffixText(const zelFrameProps &p);

// The layout of a control innerWidth twips wide. Throws zelError 6 where the
// 16-bit prefix space or input width overflows.
ZELCTRL_EXPORT zelFrameLayout zelLayoutFrame(const zelFrameProps &p, qint32 innerWidth,
                                             const zelTextWidth &measure);

// The widget part: the two labels, the layout on every resize and frame
// setter, the Enter-as-Tab rule, and the frame's persisted keys. A control
// derives from it, creates its input widget and hands it to SetInputWidget.
class ZELCTRL_EXPORT zelLabelledField : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_PROPERTY(QString Prefix READ Prefix WRITE SetPrefix)
    Q_PROPERTY(QVariant PrefixAlignment READ PrefixAlignment WRITE SetPrefixAlignment)
    Q_PROPERTY(QVariant PrefixWidth READ PrefixWidth WRITE SetPrefixWidth)
    Q_PROPERTY(QVariant PrefixColon READ PrefixColon WRITE SetPrefixColon)
    Q_PROPERTY(QVariant PrefixBold READ PrefixBold WRITE SetPrefixBold)
    Q_PROPERTY(QString Suffix READ Suffix WRITE SetSuffix)
    Q_PROPERTY(QVariant SuffixAlignment READ SuffixAlignment WRITE SetSuffixAlignment)
    Q_PROPERTY(QVariant SuffixWidth READ SuffixWidth WRITE SetSuffixWidth)
    Q_PROPERTY(QVariant SuffixParens READ SuffixParens WRITE SetSuffixParens)
    Q_PROPERTY(QVariant SuffixBold READ SuffixBold WRITE SetSuffixBold)
    Q_PROPERTY(QVariant Margin READ Margin WRITE SetMargin)
    Q_PROPERTY(QVariant Width READ Width WRITE SetWidth)
    Q_PROPERTY(QVariant SendKeysTab READ SendKeysTab WRITE SetSendKeysTab)

public:
    ~zelLabelledField() override;

    QString Prefix() const { return m_props.Prefix; }
    void SetPrefix(const QString &v);
    qint16 PrefixAlignment() const { return m_props.PrefixAlignment; }
    void SetPrefixAlignment(qint16 v);
    ZEL_LATE_BOUND(PrefixAlignment)
    qint32 PrefixWidth() const { return m_props.PrefixWidth; }
    void SetPrefixWidth(qint32 v);
    ZEL_LATE_BOUND(PrefixWidth)
    bool PrefixColon() const { return m_props.PrefixColon; }
    void SetPrefixColon(bool v);
    ZEL_LATE_BOUND(PrefixColon)
    bool PrefixBold() const { return m_props.PrefixBold; }
    void SetPrefixBold(bool v);
    ZEL_LATE_BOUND(PrefixBold)
    QString Suffix() const { return m_props.Suffix; }
    void SetSuffix(const QString &v);
    qint16 SuffixAlignment() const { return m_props.SuffixAlignment; }
    void SetSuffixAlignment(qint16 v);
    ZEL_LATE_BOUND(SuffixAlignment)
    qint32 SuffixWidth() const { return m_props.SuffixWidth; }
    void SetSuffixWidth(qint32 v);
    ZEL_LATE_BOUND(SuffixWidth)
    bool SuffixParens() const { return m_props.SuffixParens; }
    void SetSuffixParens(bool v);
    ZEL_LATE_BOUND(SuffixParens)
    bool SuffixBold() const { return m_props.SuffixBold; }
    void SetSuffixBold(bool v);
    ZEL_LATE_BOUND(SuffixBold)
    qint32 Margin() const { return m_props.Margin; }
    void SetMargin(qint32 v);
    ZEL_LATE_BOUND(Margin)
    qint16 Width() const { return m_props.Width; }
    void SetWidth(qint16 v);
    ZEL_LATE_BOUND(Width)
    bool SendKeysTab() const { return m_props.SendKeysTab; }
    void SetSendKeysTab(bool v);
    ZEL_LATE_BOUND(SendKeysTab)

    const zelFrameProps &FrameProps() const { return m_props; }
    // The layout last applied (twips).
    const zelFrameLayout &FrameLayout() const { return m_layout; }
    // True once a layout failed: the frame then leaves later resizes alone.
    bool LayoutBusy() const { return m_busy; }

    // The frame's layout (the control's resize handler).
    void LayoutFrame();

signals:
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    explicit zelLabelledField(QWidget *parent = nullptr);

    void SetInputWidget(QWidget *input);
    // Places the input part; a control with two input widgets overrides it.
    virtual void PlaceInput(const QRect &twips);

    // The Enter rule, called after the control raised KeyPress: Enter with
    // SendKeysTab moves the focus on and is discarded (KeyAscii becomes 0).
    void ApplyEnterAsTab(qint16 &KeyAscii, QWidget *from);

    // The frame's entries of a control's property table, in load order: the
    // label members are only stored on load, and the Margin setter lays out
    // once with all of them in place. Controls differ in the widths of some
    // stored numbers: the input box keeps widths and margin 32-bit and
    // alignments 16-bit, the date field the other way round.
    enum class FrameKeys
    {
        Long,
        Short
    };
    static std::vector<zel::zelPropertyDecl> FrameProperties(FrameKeys keys);
    // What a frame entry refreshes; controls number their own from RefreshOwn.
    enum : quint32
    {
        RefreshLayout = 0x1,
        RefreshOwn = 0x2
    };

    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }
    void Refresh(quint32 what) override;

    // Runs a typed key through handler, the control's KeyPress procedure.
    // True when the key is consumed: dropped (the handler answered 0) or
    // replaced by the character it answered, which is then typed into edit.
    static bool RouteTypedKey(QKeyEvent *event, QLineEdit *edit,
                              const std::function<void(qint16 &)> &handler);
    // The input colours: window or button-face background, window-text or
    // grey text.
    static void PaintInput(QWidget *input, bool enabled, bool faceBackground);

    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    qint32 measure(const QString &text, bool bold) const;

    zelFrameProps m_props;
    zelFrameLayout m_layout;
    bool m_busy = false;
    QLabel *m_lblPrefix = nullptr;
    QLabel *m_lblSuffix = nullptr;
    QWidget *m_input = nullptr;
};
