#pragma once

// The wizard's layout arithmetic, in twips, as plain functions: the button
// row, the bottom row's comment or progress, the pane by its style, and the
// header band. The control only applies what they answer.

#include "wizard/zelWizardEnums.h"
#include "zelCtrlExport.h"

#include <QRect>

#include <array>

inline constexpr qint32 zelWizardGap = 120;           // margins and gaps
inline constexpr qint32 zelWizardButtonWidth = 1080;  // each command button
inline constexpr qint32 zelWizardButtonHeight = 315;  //
inline constexpr qint32 zelWizardButtonRow = 660;     // what a header pane leaves below it
inline constexpr qint32 zelWizardBottomHeight = 555;  // the bottom frame: buttons and margins
inline constexpr qint16 zelWizardPictureWidth = 2460; // default side-picture column
inline constexpr qint16 zelWizardHeaderHeight = 920;  // default header band

// The four buttons, in the order they are placed from the right.
enum class zelWizardButton
{
    Cancel,
    Finish,
    Next,
    Back
};

// The bottom row, relative to the bottom frame. A hidden button gets an
// empty rectangle and takes no place.
struct ZELCTRL_EXPORT zelWizardButtonsLayout
{
    std::array<QRect, 4> Buttons; // by zelWizardButton
    QRect Comment;                // lblComment, or the progress pair
    QRect ProgressLabel;          // lblProgress
    QRect ProgressBar;            // prbProgress

    const QRect &Button(zelWizardButton b) const { return Buttons[size_t(b)]; }
    bool operator==(const zelWizardButtonsLayout &) const = default;
};

// visible is indexed by zelWizardButton.
ZELCTRL_EXPORT zelWizardButtonsLayout zelPlaceWizardButtons(qint32 frameWidth,
                                                            const std::array<bool, 4> &visible);

// Where a pane goes in a wizard width x height twips, and which frame shows.
struct ZELCTRL_EXPORT zelPaneLayout
{
    QRect Pane;
    bool ShowPicture = false;
    bool ShowHeader = false;

    bool operator==(const zelPaneLayout &) const = default;
};

ZELCTRL_EXPORT zelPaneLayout zelSizePane(qint32 paneStyle, qint32 width, qint32 height,
                                         qint32 pictureWidth, qint32 headerHeight);

// The fixed parts: bottom frame, side-picture column and header band.
struct ZELCTRL_EXPORT zelWizardFrameLayout
{
    QRect Bottom;        // fraBottomBack
    QRect Picture;       // imgWizard
    QRect Header;        // picHeader
    QRect HeaderPicture; // picHeaderPicture, relative to the band
    QRect Title;         // lblUserInformation, relative to the band
    QRect Description;   // lblDescription, relative to the band

    bool operator==(const zelWizardFrameLayout &) const = default;
};

ZELCTRL_EXPORT zelWizardFrameLayout zelLayoutWizard(qint32 width, qint32 height,
                                                    qint32 pictureWidth, qint32 headerHeight);
