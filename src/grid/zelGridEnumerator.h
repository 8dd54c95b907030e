#pragma once

// The enumerator that NewEnum of the grid collections answers: it walks the
// members in order, one Next() at a time, and keeps walking the members it
// was taken from even when the collection is cleared meanwhile.

#include "core/zelShared.h"

#include <QObject>
#include <QVariant>

#include <functional>
#include <memory>

class ZELCTRL_EXPORT zelGridEnumerator : public zel::SharedObject<zelGridEnumerator>
{
    Q_OBJECT

public:
    // next answers the following member (an invalid QVariant at the end);
    // reset starts again from the first.
    zelGridEnumerator(std::function<QVariant()> next, std::function<void()> reset);
    ~zelGridEnumerator() override;

    // The next member (a shared pointer that converts to QObject *), or an
    // invalid QVariant once every member has been walked.
    Q_INVOKABLE QVariant Next();
    Q_INVOKABLE void Reset();

    // Makes an enumerator from a collection's own enumerator.
    template <typename Enum> static std::shared_ptr<zelGridEnumerator> Make(Enum e)
    {
        auto state = std::make_shared<Enum>(std::move(e));
        return std::make_shared<zelGridEnumerator>(
            [state]() -> QVariant {
                auto p = state->Next();
                return p ? QVariant::fromValue(p) : QVariant();
            },
            [state] { state->Reset(); });
    }

private:
    std::function<QVariant()> m_next;
    std::function<void()> m_reset;
};
