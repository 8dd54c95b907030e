#pragma once

// The control an application puts once on its main window to get toolbars
// and menus. It makes a zelToolbars object bound to the QMainWindow it sits
// on, answers for that object's members and raises its events again. At run
// time nothing of it shows; in a form designer it is a framed box with its
// name (lblName). It persists nothing of its own.

#include "core/zelProperties.h"
#include "toolbars/zelToolbars.h"

#include <QVariant>
#include <QWidget>

#include <memory>

class QLabel;

class ZELCTRL_EXPORT zelToolbarCtrl : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Toolbars", "0x68030000")
    Q_CLASSINFO("DispId.Refresh", "0x60030001")
    Q_CLASSINFO("DispId.Item", "0")
    Q_CLASSINFO("DispId.NewEnum", "-4")
    Q_CLASSINFO("DispId.Count", "0x68030004")
    Q_CLASSINFO("DispId.Tools", "0x68030003")
    Q_CLASSINFO("DispId.IsToolBar", "0x60030005")
    Q_CLASSINFO("DispId.Create", "0x60030006")
    Q_CLASSINFO("DispId.Remove", "0x60030007")
    Q_CLASSINFO("DispId.Clear", "0x6003000b")
    Q_CLASSINFO("DispId.ToolbarVisible", "0x60030008")
    Q_CLASSINFO("DispId.Unload", "0x60030009")
    Q_CLASSINFO("DispId.IgnoreEvents", "0x68030002")
    Q_CLASSINFO("DispId.Enabled", "0x6803000a")
    Q_CLASSINFO("DispId.CommandClicked", "1")
    Q_CLASSINFO("DispId.ToolClicked", "2")
    Q_CLASSINFO("DispId.ToolbarClosed", "3")
    Q_PROPERTY(std::shared_ptr<zelToolbars> Toolbars READ Toolbars)
    Q_PROPERTY(qint32 Count READ Count)
    Q_PROPERTY(std::shared_ptr<zelTools> Tools READ Tools)
    Q_PROPERTY(QVariant IgnoreEvents READ IgnoreEvents WRITE SetIgnoreEvents)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)

public:
    explicit zelToolbarCtrl(QWidget *parent = nullptr);
    // Unloads the toolbars: every toolbar and menu leaves the window.
    ~zelToolbarCtrl() override;

    std::shared_ptr<zelToolbars> Toolbars() const { return m_toolbars; }
    // Does nothing.
    Q_INVOKABLE void Refresh() {}
    Q_INVOKABLE std::shared_ptr<zelToolbar> Item(const QVariant &vKey) const;
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const;
    qint32 Count() const;
    std::shared_ptr<zelTools> Tools() const;
    Q_INVOKABLE bool IsToolBar(const QString &sName) const;
    Q_INVOKABLE std::shared_ptr<zelToolbar> Create(const QString &sKey, const QString &sCaption);
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    Q_INVOKABLE bool Clear();
    Q_INVOKABLE void ToolbarVisible(const QString &sKey, bool bVisible);
    Q_INVOKABLE void Unload();
    bool IgnoreEvents() const;
    void SetIgnoreEvents(bool v);
    ZEL_LATE_BOUND(IgnoreEvents)
    // True from the start; the control's own enabled state on its form.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)

    const zel::zelPropertyTable &Properties() const override;
    // 0 at run time, 1 (a single border) in a form designer, once laid out.
    int BorderStyle() const { return m_borderStyle; }

signals:
    void CommandClicked(const QString &sCommand);
    void ToolClicked(const QString &sCommand);
    void ToolbarClosed(const QString &sToolbar);
    // The property store's mark (nothing of this control is persisted).
    void PropertyChanged(const QString &name);

protected:
    // The table's refresh, apart from the host's Refresh (which does nothing).
    using zelPropertyHost::Refresh;
    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    // Binds the toolbars to the main window the control sits on, at run time.
    void bindWindow();

    std::shared_ptr<zelToolbars> m_toolbars;
    QLabel *m_lblName = nullptr;
    bool m_enabled = true;
    bool m_laidOut = false;
    int m_borderStyle = 0;
};
