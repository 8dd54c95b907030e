#pragma once

// The machinery shared by the two dialog button bars: a row of up to eight
// command buttons chosen by a bit set, laid out from the right edge to the
// left with a gap of 120 twips, captions by language, and the persisted
// sizes and bit sets.
//
// Slots are numbered by bit: slot 0 is bit 1 (Help), slot 1 bit 2 (Apply or
// Properties), slot 2 bit 4 (Cancel or Remove), slot 3 bit 8 (OK or Add),
// slots 4 to 7 bits 16 to 128 (the option buttons 0 to 3). The layout
// places them in that order, so Help stands at the right edge and the
// option buttons at the left.

#include "buttons/zelButtonEnums.h"
#include "core/zelProperties.h"
#include "zelCtrlExport.h"

#include <QRect>
#include <QSize>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <array>

class QPushButton;

inline constexpr int zelBarSlots = 8;
inline constexpr int zelBarFirstOption = 4; // slot of option button 0
inline constexpr qint32 zelBarGap = 120;    // twips between two buttons
inline constexpr qint32 zelBarDefaultHeight = 315;
inline constexpr qint32 zelBarDefaultWidth = 1080;
inline constexpr qint32 zelBarDefaultBits = 15;
// Largest button width or height taken: eight buttons and their gaps still
// fit a 32-bit width in twips.
inline constexpr qint32 zelBarMaxButtonSize = 100000;

// The bit of a slot (1, 2, 4, ... 128).
constexpr qint32 zelBarBit(int slot)
{
    return qint32(1) << slot;
}

// How many of the eight button bits are set.
ZELCTRL_EXPORT int zelBarCount(qint32 bits);

// bits with the bits of which set (on) or cleared.
constexpr qint32 zelBarWithBits(qint32 bits, qint32 which, bool on)
{
    return on ? (bits | which) : (bits & ~which);
}

// Where one button goes, in twips relative to the bar.
struct ZELCTRL_EXPORT zelBarButtonPlace
{
    bool Visible = false;
    bool Enabled = false;
    QRect Rect;

    bool operator==(const zelBarButtonPlace &) const = default;
};

struct ZELCTRL_EXPORT zelButtonBarLayout
{
    // Buttons shown. With none, the bar shrinks to nothing and the buttons
    // are left as they were.
    int Count = 0;
    QSize Size{0, 0}; // twips
    std::array<zelBarButtonPlace, zelBarSlots> Buttons;

    bool operator==(const zelButtonBarLayout &) const = default;
};

// The layout of a bar: count x (buttonWidth + 120) - 120 wide, buttonHeight
// high, each visible button placed by PlaceOneButton walking from the right.
ZELCTRL_EXPORT zelButtonBarLayout zelLayoutButtonBar(qint32 visible, qint32 enabled,
                                                     qint32 buttonWidth, qint32 buttonHeight);

// What a Language setting says.
enum class zelBarLanguage
{
    English,
    German,
    Other
};
// "english" (and ""), "german" or "deutsch" in any letter case; anything else is Other.
ZELCTRL_EXPORT zelBarLanguage zelClassifyLanguage(const QString &language);

// The captions one language gives a bar. Three are written on their buttons
// at once; the main button (slot 3) and the second button (slot 1) keep a
// caption and an alternative, and the layout shows one of each.
struct ZELCTRL_EXPORT zelBarCaptions
{
    QString Help;      // slot 0, written at once
    QString SecondNow; // slot 1, written at once (the layout replaces it)
    QString Third;     // slot 2, written at once
    QString Main;      // slot 3
    QString MainAlt;   // slot 3 when its switch is on
    QString Second;    // slot 1
    QString SecondAlt; // slot 1 when its switch is on
    qint32 ButtonWidth = zelBarDefaultWidth;
};

// What makes one kind of bar: its four own buttons' names, its captions,
// and what a language other than English or German does to the German flag.
struct ZELCTRL_EXPORT zelButtonBarKind
{
    std::array<const char *, 4> Names; // widget names of slots 0 to 3
    zelBarCaptions English;
    zelBarCaptions German;
    bool OtherLanguageClearsGerman = false;
};

// The widget base of the bars. Hosts use zelStdButtons and zelPrpButtons.
class ZELCTRL_EXPORT zelButtonBar : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_PROPERTY(QString Language READ Language WRITE SetLanguage)
    Q_PROPERTY(QVariant ButtonHeight READ ButtonHeight WRITE SetButtonHeight)
    Q_PROPERTY(QVariant ButtonWidth READ ButtonWidth WRITE SetButtonWidth)
    Q_PROPERTY(QVariant ButtonsVisible READ ButtonsVisible WRITE SetButtonsVisible)
    Q_PROPERTY(QVariant ButtonsEnabled READ ButtonsEnabled WRITE SetButtonsEnabled)

public:
    ~zelButtonBar() override;

    // "English" (the default), "German" or "Deutsch" in any letter case
    // switch the captions and the button width (1080 or 1200 twips); "" is
    // taken as "English". Setting the language it already has, in any letter
    // case, does nothing. A new bar reads in English but holds no language
    // yet, so the first language set, by the host or a load, always writes
    // its captions and width.
    QString Language() const;
    void SetLanguage(const QString &v);
    // Twips, 0 to 100000. By default 315 high and 1080 wide (1200 in German).
    qint32 ButtonHeight() const { return m_buttonHeight; }
    void SetButtonHeight(qint32 v);
    ZEL_LATE_BOUND(ButtonHeight)
    qint32 ButtonWidth() const { return m_buttonWidth; }
    void SetButtonWidth(qint32 v);
    ZEL_LATE_BOUND(ButtonWidth)
    // Bit sets of the buttons shown and enabled; by default 15, the bar's
    // four own buttons.
    qint32 ButtonsVisible() const { return m_visible; }
    void SetButtonsVisible(qint32 v);
    ZEL_LATE_BOUND(ButtonsVisible)
    qint32 ButtonsEnabled() const { return m_enabled; }
    void SetButtonsEnabled(qint32 v);
    ZEL_LATE_BOUND(ButtonsEnabled)

    // Caption of option button Index (0 to 3); another index is error 9.
    Q_INVOKABLE QString OptionButtonCaption(qint32 Index) const;
    Q_INVOKABLE void SetOptionButtonCaption(qint32 Index, const QString &sCaption);
    // Loads a picture file onto option button Index; "" takes the picture off.
    Q_INVOKABLE void SetOptionButtonPicture(qint32 Index, const QString &sFileName);
    // Puts a picture (QPixmap, QIcon, QImage or a file name) on option button
    // Index; false for an empty picture or an index outside 0 to 3.
    Q_INVOKABLE bool LoadOptionButtonPicture(qint32 Index, const QVariant &oPicture);

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    // The property button bar raises an event named Properties, which would
    // hide this name there: each bar names its table in BarProperties.
    const zel::zelPropertyTable &Properties() const final { return BarProperties(); }

    // The layout last applied (twips).
    const zelButtonBarLayout &BarLayout() const { return m_layout; }
    // True once a layout failed: the bar then leaves later layouts alone.
    bool LayoutBusy() const { return m_busy; }
    // Whether the last language that switched the captions was German.
    bool IsGerman() const { return m_german; }

    // Lays the bar out again (its resize handler).
    void LayoutBar();

signals:
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    zelButtonBar(const zelButtonBarKind &kind, QWidget *parent);

    virtual const zel::zelPropertyTable &BarProperties() const = 0;
    // The entries every bar starts its table with, in load order.
    static std::vector<zel::zelPropertyDecl> SharedProperties();
    // The entry every bar ends its table with: Language is read last.
    static zel::zelPropertyDecl LanguageProperty();
    enum : quint32
    {
        RefreshLayout = 0x1,
        // The captions and button width of the language held.
        RefreshLanguage = 0x2
    };

    QPushButton *SlotButton(int slot) const { return m_buttons[size_t(slot)]; }

    // Sets or clears bits through the ButtonsEnabled / ButtonsVisible setters.
    void ChangeEnabledBits(qint32 eButton, bool bEnabled);
    void ChangeVisibleBits(qint32 eButton, bool bVisible);

    // The switches that show the alternative captions of slots 3 and 1; the
    // standard bar's setters store into them.
    bool MainAlternative() const { return m_mainAlt; }
    bool SecondAlternative() const { return m_secondAlt; }
    bool &MainAlternative() { return m_mainAlt; }
    bool &SecondAlternative() { return m_secondAlt; }

    // Raises the event of a clicked button.
    virtual void RaiseClick(int slot) = 0;

    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }
    void Refresh(quint32 what) override;

    void resizeEvent(QResizeEvent *event) override;

private:
    void buttonClicked(int slot);
    void applyLanguage();
    void applyCaptions(const zelBarCaptions &c);
    QPushButton *optionButton(qint32 index) const;

    const zelButtonBarKind &m_kind;
    std::array<QPushButton *, zelBarSlots> m_buttons{};
    QString m_language; // "" until a language is set
    qint32 m_buttonHeight = zelBarDefaultHeight;
    qint32 m_buttonWidth = zelBarDefaultWidth;
    qint32 m_visible = zelBarDefaultBits;
    qint32 m_enabled = zelBarDefaultBits;
    bool m_german = false;
    bool m_mainAlt = false;
    bool m_secondAlt = false;
    QString m_mainCaption;
    QString m_mainAltCaption;
    QString m_secondCaption;
    QString m_secondAltCaption;
    zelButtonBarLayout m_layout;
    bool m_busy = false;
};
