#pragma once

// The column string of the record lists: entries separated by tabs,
// each an optional flag character ("<" left, ">" right, "|" centre, "_"),
// a caption, and optionally "~" and a width (1 to 300: pixels; 301 and up:
// twips). Parsing is a plain function so the rules can be checked without
// a widget.

#include "zelCtrlExport.h"

#include <QList>
#include <QString>

namespace zel {

enum class zelColumnDialect
{
    Combo,    // "_" shows the column explicitly and leaves its alignment alone
    TreeList, // "_" hides the column
};

struct zelColumnDesc
{
    enum Visibility
    {
        Default,
        Shown,
        Hidden
    };

    QString caption;
    int alignment = 1; // 0 left, 1 centre, 2 right, -1 as the widget sets it
    Visibility visible = Default;
    int widthPixels = 0;        // 0: the widget's default width
    bool widthOverflow = false; // the width text was a number outside 16 bits

    bool operator==(const zelColumnDesc &) const = default;
};

// More entries than this are dropped; the caller logs it. No widget shows a
// usable list of that many columns, and a huge column string must not cost
// a widget column per tab.
inline constexpr int zelMaxColumns = 1024;

struct zelColumnParseIssues
{
    bool truncated = false;  // entries past zelMaxColumns were dropped
    int overflowColumn = -1; // first column whose width overflowed 16 bits
};

// The columns of colText, one per entry (always at least one):
// - one blank is appended and the text split at tabs; each entry is trimmed
//   of blanks (spaces only), "~" appended and split at "~": the head is the
//   flag and caption, the second field the width;
// - "<", ">", "|" give alignment 0, 2, 1 and leave the rest as caption; "_"
//   leaves the rest as caption and makes the column Shown (Combo, alignment
//   -1) or Hidden (TreeList, alignment -1); any other head is the caption
//   as a whole, centred, and an empty one is "Default" in the combo.
//   In the tree list an empty head gets an empty caption, left aligned: the
//   flag lookup there searches the flag characters for the head's first
//   character, and a search for nothing finds the first flag, "<";
// - the width is the width text read as a number (empty or not a number:
//   0) rounded half to even to a 16-bit integer. Outside 16 bits the
//   classic conversion overflows: here that column keeps the default width,
//   the remaining entries are still read, and widthOverflow (and issues)
//   tell the caller, which logs error 6. Up to 300 the width is pixels;
//   from 301 it is twips divided by twipsPerPixel and rounded half to even
//   (a twipsPerPixel that is not a positive number counts as 15).
ZELCTRL_EXPORT QList<zelColumnDesc> ParseColumns(const QString &colText, zelColumnDialect dialect,
                                                 double twipsPerPixel,
                                                 zelColumnParseIssues *issues = nullptr);

// The combo shows its header with two columns or more.
inline bool ComboHeaderVisible(qsizetype columnCount)
{
    return columnCount >= 2;
}

// The tree list has one hidden column more than its entries: it shows its
// header when the host wishes it and there are two data columns or more.
inline bool TreeListHeaderVisible(qsizetype widgetColumnCount, bool wish)
{
    return wish && widgetColumnCount >= 3;
}

} // namespace zel
