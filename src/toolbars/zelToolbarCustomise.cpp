#include "toolbars/zelToolbarCustomise.h"

#include "buttons/zelStdButtons.h"
#include "core/zelTrail.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int KeyRole = Qt::UserRole;

// A caption as the user reads it, without its mnemonic marks.
QString plain(QString caption)
{
    return caption.replace(QLatin1String("&&"), QLatin1String("\x01"))
        .remove(QLatin1Char('&'))
        .replace(QLatin1String("\x01"), QLatin1String("&"));
}

} // namespace

zelToolbarCustomise::zelToolbarCustomise(zelToolbarLayout *layout, QWidget *parent)
    : QDialog(parent), m_layout(layout),
      m_toolbars(layout ? layout->Toolbars() : std::shared_ptr<zelToolbars>())
{
    setObjectName(QStringLiteral("frmCustomise"));
    setWindowTitle(QStringLiteral("Customise"));

    m_lstToolbars = new QListWidget(this);
    m_lstToolbars->setObjectName(QStringLiteral("lstToolbars"));
    m_lstTools = new QListWidget(this);
    m_lstTools->setObjectName(QStringLiteral("lstTools"));
    m_lstTools->setDragDropMode(QAbstractItemView::InternalMove);
    m_lstTools->setDefaultDropAction(Qt::MoveAction);
    auto *reset = new QPushButton(QStringLiteral("Reset"), this);
    reset->setObjectName(QStringLiteral("cmdReset"));
    m_buttons = new zelStdButtons(this);
    m_buttons->setObjectName(QStringLiteral("ctlButtons"));
    m_buttons->SetButtonsVisible(ZEL_StdButton_OKCancel);

    auto *lists = new QHBoxLayout;
    auto *left = new QVBoxLayout, *right = new QVBoxLayout;
    left->addWidget(new QLabel(QStringLiteral("Toolbars"), this));
    left->addWidget(m_lstToolbars);
    right->addWidget(new QLabel(QStringLiteral("Tools (drag to reorder)"), this));
    right->addWidget(m_lstTools);
    lists->addLayout(left);
    lists->addLayout(right);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(reset);
    bottom->addStretch();
    bottom->addWidget(m_buttons);
    auto *all = new QVBoxLayout(this);
    all->addLayout(lists);
    all->addLayout(bottom);

    connect(m_lstToolbars, &QListWidget::currentRowChanged, this, [this] { fillTools(); });
    connect(m_lstToolbars, &QListWidget::itemChanged, this, [this](QListWidgetItem *item) {
        const int row = m_lstToolbars->row(item);
        if (!m_filling && row >= 0 && row < m_state.Toolbars.size())
            m_state.Toolbars[row].Visible = item->checkState() == Qt::Checked;
    });
    connect(m_lstTools->model(), &QAbstractItemModel::rowsMoved, this, [this] { takeToolOrder(); });
    connect(reset, &QPushButton::clicked, this, [this] {
        if (!m_layout)
            return;
        m_state = m_layout->Defaults();
        fillToolbars();
    });
    connect(m_buttons, &zelStdButtons::OK, this, &zelToolbarCustomise::ok);
    connect(m_buttons, &zelStdButtons::Cancel, this, &QDialog::reject);
    Reload();
}

zelToolbarCustomise::~zelToolbarCustomise() = default;

void zelToolbarCustomise::Reload()
{
    if (const auto toolbars = m_toolbars.lock())
        m_state = zel::CaptureToolbarLayout(*toolbars);
    fillToolbars();
}

void zelToolbarCustomise::fillToolbars()
{
    const auto toolbars = m_toolbars.lock();
    {
        const QSignalBlocker quiet(m_lstToolbars);
        m_filling = true;
        m_lstToolbars->clear();
        for (const zel::ToolbarState &s : std::as_const(m_state.Toolbars)) {
            const auto bar = toolbars ? toolbars->Item(s.Key) : nullptr;
            auto *item = new QListWidgetItem(bar ? plain(bar->Caption()) : s.Key, m_lstToolbars);
            item->setData(KeyRole, s.Key);
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(s.Visible ? Qt::Checked : Qt::Unchecked);
        }
        m_filling = false;
    }
    m_lstToolbars->setCurrentRow(m_state.Toolbars.isEmpty() ? -1 : 0);
    fillTools();
}

void zelToolbarCustomise::fillTools()
{
    m_lstTools->clear();
    const int row = m_lstToolbars->currentRow();
    const auto toolbars = m_toolbars.lock();
    if (row < 0 || row >= m_state.Toolbars.size() || !toolbars)
        return;
    for (const QString &key : std::as_const(m_state.Toolbars[row].Tools)) {
        const auto tool = toolbars->Tools()->Item(key);
        QString text = tool ? plain(tool->Caption()) : key;
        if (tool && tool->Type() == ZEL_Toolbar_ToolSeparator)
            text = QStringLiteral("----");
        auto *item = new QListWidgetItem(text, m_lstTools);
        item->setData(KeyRole, key);
        item->setFlags((item->flags() | Qt::ItemIsDragEnabled) & ~Qt::ItemIsDropEnabled);
    }
}

void zelToolbarCustomise::takeToolOrder()
{
    const int row = m_lstToolbars->currentRow();
    if (row < 0 || row >= m_state.Toolbars.size())
        return;
    QStringList keys;
    for (int i = 0; i < m_lstTools->count(); ++i)
        keys << m_lstTools->item(i)->data(KeyRole).toString();
    m_state.Toolbars[row].Tools = keys;
}

void zelToolbarCustomise::ok()
{
    zel::Trail t(this, "cmdOK_Click");
    t.Run([&] {
        if (const auto toolbars = m_toolbars.lock())
            zel::ApplyToolbarLayout(*toolbars, m_state);
    });
    accept();
}
