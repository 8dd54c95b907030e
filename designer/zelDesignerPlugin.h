#pragma once

// The Qt Designer plugin of the library: a collection with one widget-box
// entry per control. Each entry creates its control through the object
// factory, by program identifier, the way any late-bound host does. A
// control placed on a form that Designer edits is in design mode (UserMode
// false); the same entry building a form at run time (QUiLoader, Designer's
// preview) gives a control in run mode.
// Designer's property editor shows the controls' own read/write properties
// but not the UserMode mark.

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

class QDesignerFormEditorInterface;
class QDesignerFormWindowInterface;

// One control as the widget box offers it.
struct zelDesignerEntry
{
    const char *Name;    // the class; its program identifier is "zelCtrl.<Name>"
    const char *Include; // as a host includes it, relative to the include folder
    const char *ToolTip;
    int WidthTwips; // the size of a newly placed control
    int HeightTwips;
};

class zelDesignerCollection;

class zelDesignerWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    zelDesignerWidget(const zelDesignerEntry &entry, zelDesignerCollection *collection);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface *core) override;
    QString domXml() const override;

private:
    zelDesignerEntry m_entry;
    zelDesignerCollection *m_collection;
    bool m_initialized = false;
};

class zelDesignerCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit zelDesignerCollection(QObject *parent = nullptr);

    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

    // Follows the forms of a Designer core, so that no control placed on
    // them shows its UserMode mark. Once per core.
    void Watch(QDesignerFormEditorInterface *core);

private:
    void watchForm(QDesignerFormEditorInterface *core, QDesignerFormWindowInterface *form);
    void hideUserModeMark(QDesignerFormEditorInterface *core, QWidget *widget) const;

    QList<QDesignerCustomWidgetInterface *> m_widgets;
    QStringList m_classes;
    QList<QPointer<QObject>> m_watched;
};
