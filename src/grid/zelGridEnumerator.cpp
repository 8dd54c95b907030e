#include "grid/zelGridEnumerator.h"

#include "core/zelShared.h"

zelGridEnumerator::zelGridEnumerator(std::function<QVariant()> next, std::function<void()> reset)
    : m_next(std::move(next)), m_reset(std::move(reset))
{
    zel::RegisterShared<zelGridEnumerator>();
}

zelGridEnumerator::~zelGridEnumerator() = default;

QVariant zelGridEnumerator::Next()
{
    return m_next ? m_next() : QVariant();
}

void zelGridEnumerator::Reset()
{
    if (m_reset)
        m_reset();
}
