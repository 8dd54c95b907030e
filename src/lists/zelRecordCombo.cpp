#include "lists/zelRecordCombo.h"

#include "core/mMain.h"
#include "core/zelKeys.h"
#include "core/zelTrail.h"
#include "lists/zelColumnString.h"
#include "lists/zelRecordCombo_p.h"
#include "platform/zelPlatform.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScopeGuard>
#include <QTreeView>

#include <algorithm>

zel::zelListWidth zel::ListWidth(const QList<qint32> &columnsPixels, qint32 comboTwips,
                                 double twipsPerPixel)
{
    qint64 sum = 0;
    for (qint32 w : columnsPixels)
        sum += w;
    if (comboTwips >= double(sum) * twipsPerPixel)
        return {0, true};
    return {qint32(qMin<qint64>(sum + 4, std::numeric_limits<qint32>::max())), false};
}

// The widget side of the selection rules: the chosen row is the only
// selected one.
class zelRecordCombo::Rows : public zelRecordSelection::View
{
public:
    explicit Rows(zelRecordCombo &c) : m_c(c) {}
    qint32 FindRow(const QString &key) const override { return m_c.m_model->FindKey(key); }
    QList<qint32> SelectedRows() const override
    {
        return m_c.m_chosen ? QList<qint32>{m_c.m_chosen} : QList<qint32>{};
    }
    void SelectRow(qint32 row) override { m_c.choose(row); }
    void UnselectRow(qint32) override { m_c.choose(0); }
    std::shared_ptr<zelComboRecord> RecordOfRow(qint32 row) const override
    {
        return m_c.m_records->Store()->Object(row);
    }
    void RaiseChanged(bool bUserClick) override { emit m_c.Changed(bUserClick); }

private:
    zelRecordCombo &m_c;
};

zelRecordCombo::zelRecordCombo(bool tree, bool enabled, QWidget *parent)
    : zelLabelledField(parent), m_records(new zelComboRecords),
      m_model(std::make_unique<zelRecordModel>()), m_rows(std::make_unique<Rows>(*this)),
      m_selection(*m_rows, false), m_enabled(enabled)
{
    m_cboValue = new zelRecordComboBox(this);
    m_cboValue->setObjectName(QStringLiteral("cboValue"));
    m_cboValue->OpenPopup = [this] { ShowDropDown(); };
    m_cboValue->ClosePopup = [this] { HideDropDown(); };
    m_cboValue->Key = [this](QKeyEvent *e) { return closedKey(e); };
    SetInputWidget(m_cboValue);
    m_model->SetStore(m_records->Store());
    m_popup = new zelRecordPopup(this, m_model.get(), tree);
    zel::Trail t(this, "Columns Let");
    t.Run([&] { applyColumns(QString()); });
    paintCombo(false, false);
}

zelRecordCombo::~zelRecordCombo() = default;

std::vector<zel::zelPropertyDecl> zelRecordCombo::RecordComboEntries(
    std::initializer_list<const char *> dropped,
    std::initializer_list<std::pair<const char *, std::vector<zel::zelPropertyDecl>>> inserts)
{
    std::vector<zel::zelPropertyDecl> entries = FrameProperties(FrameKeys::Short);
    for (const char *name : dropped)
        std::erase_if(entries,
                      [&](const zel::zelPropertyDecl &d) { return qstrcmp(d.Name, name) == 0; });
    for (const auto &insert : inserts) {
        const char *after = insert.first;
        auto it = std::find_if(entries.begin(), entries.end(), [&](const zel::zelPropertyDecl &d) {
            return qstrcmp(d.Name, after) == 0;
        });
        entries.insert(it == entries.end() ? it : it + 1, insert.second.begin(),
                       insert.second.end());
    }
    return entries;
}

QTreeView *zelRecordCombo::DropDownView() const
{
    flush();
    return m_popup->View();
}

QWidget *zelRecordCombo::comboBox() const
{
    return m_cboValue;
}

void zelRecordCombo::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [&] {
        for (const char *name : {"lblPrefix", "lblSuffix"})
            if (auto *label = findChild<QLabel *>(QLatin1String(name)))
                label->setEnabled(m_enabled);
        m_cboValue->setEnabled(m_enabled);
        paintCombo(!m_enabled, !m_enabled);
        if (m_enabled)
            applyReadOnly();
        else
            HideDropDown();
    });
}

void zelRecordCombo::SetReadOnly(bool v)
{
    LetThen("ReadOnly", m_readOnly, v, [&] { applyReadOnly(); });
}

void zelRecordCombo::applyReadOnly()
{
    // The labels keep their look: only the combo stops taking input.
    m_cboValue->setEnabled(m_readOnly ? false : m_enabled);
    paintCombo(m_readOnly, !m_enabled);
    if (m_readOnly)
        HideDropDown();
}

void zelRecordCombo::paintCombo(bool faceBackground, bool greyText)
{
    QPalette pal = m_cboValue->palette();
    const QColor back =
        zel::ToQColor(faceBackground ? zel::SysButtonFace : zel::SysWindowBackground);
    pal.setColor(QPalette::Base, back);
    pal.setColor(QPalette::Button, back);
    if (m_paintsForeground) {
        const QColor fore = zel::ToQColor(greyText ? zel::SysGrayText : zel::SysWindowText);
        pal.setColor(QPalette::Text, fore);
        pal.setColor(QPalette::ButtonText, fore);
    }
    m_cboValue->setPalette(pal);
}

void zelRecordCombo::SetSorted(bool v)
{
    Let("Sorted", m_sorted, v);
}

void zelRecordCombo::SetColumns(const QString &v)
{
    LetThen("Columns", m_columns, v, [&] {
        if (m_records->Count() > 0)
            Clear();
        applyColumns(m_columns);
    });
}

void zelRecordCombo::applyColumns(const QString &colText)
{
    zel::zelColumnParseIssues issues;
    const QList<zel::zelColumnDesc> cols = zel::ParseColumns(
        colText, zel::zelColumnDialect::Combo, zel::platform().TwipsPerPixel(), &issues);
    m_model->SetColumns(cols);
    QTreeView *view = m_popup->View();
    QHeaderView *header = view->header();
    m_widths.clear();
    for (int i = 0; i < cols.size(); ++i) {
        const int w = cols[i].widthPixels > 0 ? cols[i].widthPixels : header->defaultSectionSize();
        m_widths.append(w);
        header->resizeSection(i, w);
        view->setColumnHidden(i, cols[i].visible == zel::zelColumnDesc::Hidden);
    }
    view->setHeaderHidden(!zel::ComboHeaderVisible(cols.size()));
    LayoutFrame();
    if (issues.truncated)
        throw zelError(
            zelError::InvalidPropertyValue, QString(),
            QStringLiteral("More than %1 columns; the rest were left out").arg(zel::zelMaxColumns));
    if (issues.overflowColumn >= 0)
        throw zelError(zelError::Overflow, QString(),
                       QStringLiteral("Width of column %1 out of range; the default width kept")
                           .arg(issues.overflowColumn));
}

void zelRecordCombo::PlaceInput(const QRect &twips)
{
    zelLabelledField::PlaceInput(twips);
    setMinWidthList();
}

void zelRecordCombo::setMinWidthList()
{
    zel::Trail t(this, "SetMinWidthList");
    t.Run([&] {
        QList<qint32> shown;
        for (int i = 0; i < m_widths.size(); ++i)
            if (!m_popup->View()->isColumnHidden(i))
                shown.append(m_widths.at(i));
        m_listWidth = zel::ListWidth(shown, zel::PixelsToTwips(m_cboValue->width()),
                                     zel::platform().TwipsPerPixel());
        m_popup->View()->header()->setStretchLastSection(m_listWidth.AutoFit);
    });
}

zelComboRecordRef zelRecordCombo::AddRecordRow(zel::Trail &t, const QString &sParentKey,
                                               const QString &sKey, const QString &sData,
                                               const QVariant &oTag, const QString &sText,
                                               int imageIndex, bool bEnabled, bool bExpandParent)
{
    // Whatever the outcome, clicks count as the user's again.
    auto done = qScopeGuard([this] { m_selection.ItemAdded(); });
    // The step marker is written out only when a step fails: a million adds
    // compose none.
    const char *step = "Splitting";
    int rowsBefore = -1;
    try {
        m_records->Store()->Expect(sKey);
        if (m_model->ColumnCount() == 0)
            applyColumns(QString());
        // The texts are sData and one tab split at tabs: one more than the
        // columns is too many.
        if (sData.count(QLatin1Char('\t')) >= m_model->ColumnCount())
            return {};
        step = "Adding Record";
        const int entry = m_records->CreateEntry(sKey, sData, oTag, sParentKey);
        if (!entry)
            return {};
        // The row goes under the row of the record's Parent (each record's
        // entry is its row), so records and rows agree even where the
        // parent key differs from the parent's in case.
        const int parent = m_records->Store()->At(entry).parent;
        step = "Adding Item: ";
        rowsBefore = m_model->RowCount();
        beginBatch();
        const int handle =
            m_model->AddEntryRow(parent, entry, sText, imageIndex, bEnabled, m_sorted);
        rowsBefore = -1;
        if (handle > 0) {
            step = "Added Item";
            if (parent)
                m_model->SetExpanded(parent, bExpandParent);
        }
        step = "Finished";
        m_dropDownHeight = mMain::MinHeightList(
            m_model->RowCount(), !m_popup->View()->isHeaderHidden(), m_listWidth.MinWidth != 0);
        return zelComboRecordRef(m_records->Store(), entry);
    } catch (...) {
        t.Step =
            QString::fromLatin1(step) + (rowsBefore >= 0 ? QString::number(rowsBefore) : QString());
        throw;
    }
}

void zelRecordCombo::Clear()
{
    flush();
    zel::Trail t(this, "Clear");
    t.Run([&] {
        m_selection.Clear([&] {
            m_model->BeginUpdate();
            auto end = qScopeGuard([&] { m_model->EndUpdate(); });
            // The records' entries are the rows: both go here.
            m_model->Clear();
            m_chosen = 0;
            showChosen();
        });
    });
}

bool zelRecordCombo::SelectItem(const QString &sKey)
{
    flush();
    zel::Trail t(this, "SelectItem");
    bool found = false;
    t.Run([&] { found = m_selection.SelectItem(sKey); });
    return found;
}

void zelRecordCombo::BeginUpdate()
{
    m_model->BeginUpdate();
}

void zelRecordCombo::EndUpdate()
{
    // An unmatched EndUpdate must not end a bracket opened elsewhere.
    if (m_model->IsUpdating())
        m_model->EndUpdate();
    flush();
}

void zelRecordCombo::beginBatch()
{
    if (m_batching || m_model->IsUpdating() || m_popup->isVisible())
        return;
    m_batching = true;
    m_model->BeginUpdate();
    QMetaObject::invokeMethod(
        this, [this] { flush(); }, Qt::QueuedConnection);
}

void zelRecordCombo::flush() const
{
    if (!m_batching)
        return;
    m_batching = false;
    if (m_model->IsUpdating())
        m_model->EndUpdate();
}

void zelRecordCombo::choose(int handle)
{
    if (handle == m_chosen)
        return;
    m_chosen = handle;
    showChosen();
    zel::Trail t(this, "cboValue_SelectionChanged");
    t.Run([&] { m_selection.SelectionChanged(); });
}

void zelRecordCombo::showChosen()
{
    if (!m_model->IsRow(m_chosen)) {
        m_cboValue->clear();
        return;
    }
    const QModelIndex index = m_model->IndexOf(m_chosen, qMax(0, m_model->TreeColumn()));
    const QString text = index.data(Qt::DisplayRole).toString();
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    if (m_cboValue->count() == 0) {
        m_cboValue->addItem(icon, text);
    } else {
        m_cboValue->setItemText(0, text);
        m_cboValue->setItemIcon(0, icon);
    }
}

int zelRecordCombo::stepFrom(int handle, int step) const
{
    const zelRecordModel &m = *m_model;
    auto next = [&m](int h) {
        if (m.ChildCount(h) > 0)
            return m.ChildAt(h, 0);
        while (h) {
            const int p = m.ParentOf(h);
            const int pos = m.IndexOf(h).row();
            if (pos + 1 < m.ChildCount(p))
                return m.ChildAt(p, pos + 1);
            h = p;
        }
        return 0;
    };
    auto previous = [&m](int h) {
        if (!h)
            return 0;
        const int p = m.ParentOf(h);
        const int pos = m.IndexOf(h).row();
        if (pos == 0)
            return p;
        int s = m.ChildAt(p, pos - 1);
        while (m.ChildCount(s) > 0)
            s = m.ChildAt(s, m.ChildCount(s) - 1);
        return s;
    };
    int h = handle;
    for (int n = 0; n < qAbs(step); ++n) {
        int candidate = h;
        do
            candidate = step > 0 ? next(candidate) : previous(candidate);
        while (candidate && !m.IsEnabled(candidate));
        if (!candidate)
            break;
        h = candidate;
    }
    return h;
}

bool zelRecordCombo::closedKey(QKeyEvent *event)
{
    qint16 key = zel::KeyAscii(event);
    if (key == 13) {
        zel::Trail t(this, "cboValue_KeyPress");
        t.Run([&] { cboValue_KeyPress(key); });
        return key == 0;
    }
    const bool alt = event->modifiers() & Qt::AltModifier;
    int target = -1;
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt)
            return false; // opens or closes the drop-down
        target = stepFrom(m_chosen, event->key() == Qt::Key_Up ? -1 : 1);
        break;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        target = stepFrom(m_chosen, event->key() == Qt::Key_PageUp ? -10 : 10);
        break;
    case Qt::Key_Home:
        target = stepFrom(0, 1);
        break;
    case Qt::Key_End:
        target = stepFrom(m_chosen, m_model->RowCount());
        break;
    default:
        // Typed letters would search the combo box's own (single) item.
        return key > 32;
    }
    if (target > 0)
        choose(target);
    return true;
}

void zelRecordCombo::ShowDropDown()
{
    flush();
    if (m_readOnly || !m_cboValue->isEnabled())
        return;
    const int width = qMax(m_cboValue->width(), m_listWidth.MinWidth);
    m_popup->Open(m_cboValue, width, m_dropDownHeight, m_chosen);
}

void zelRecordCombo::HideDropDown()
{
    m_popup->hide();
}

bool zelRecordCombo::DropDownVisible() const
{
    return m_popup->isVisible();
}
