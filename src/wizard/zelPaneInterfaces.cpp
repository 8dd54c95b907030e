#include "wizard/zelPaneInterfaces.h"

#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(IzelPane);
ZEL_REGISTER_PROGID(IzelPaneDirection);
ZEL_REGISTER_PROGID(IzelPaneEnabled);
ZEL_REGISTER_PROGID(CPaneTemplate);

IzelPane::IzelPane(QObject *parent) : QObject(parent) {}
IzelPane::~IzelPane() = default;

IzelPaneDirection::IzelPaneDirection(QObject *parent) : QObject(parent) {}
IzelPaneDirection::~IzelPaneDirection() = default;

bool IzelPaneDirection::EnterPane(ZEL_Controls_WizardDirections)
{
    return false;
}

bool IzelPaneDirection::LeavePane(ZEL_Controls_WizardDirections)
{
    return false;
}

IzelPaneEnabled::IzelPaneEnabled(QObject *parent) : QObject(parent) {}
IzelPaneEnabled::~IzelPaneEnabled() = default;

CPaneTemplate::CPaneTemplate(QObject *parent) : QObject(parent) {}
CPaneTemplate::~CPaneTemplate() = default;
