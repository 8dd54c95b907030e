#include "core/zelError.h"

#include <new>
#include <stdexcept>
#include <typeinfo>
#include <variant>

zelError::zelError(qint32 number, const QString &source, const QString &description)
    : m_number(number), m_source(source),
      m_description(description.isEmpty() ? StandardDescription(number) : description),
      m_what(m_description.toStdString())
{}

QString zelError::StandardDescription(qint32 number)
{
    switch (number) {
    case InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case Overflow:
        return QStringLiteral("Overflow");
    case OutOfMemory:
        return QStringLiteral("Out of memory");
    case SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case TypeMismatch:
        return QStringLiteral("Type mismatch");
    case InvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case ObjectRequired:
        return QStringLiteral("Object required");
    case NotSupported:
        return QStringLiteral("Object doesn't support this property or method");
    case WrongArgumentCount:
        return QStringLiteral("Wrong number of arguments or invalid property assignment");
    case DialogCancelled:
        return QStringLiteral("Cancel was selected.");
    default:
        return QStringLiteral("Application-defined or object-defined error");
    }
}

zelError zelCurrentError()
{
    try {
        throw;
    } catch (const zelError &e) {
        return e;
    } catch (const std::overflow_error &e) {
        return zelError(zelError::Overflow, {}, QString::fromLocal8Bit(e.what()));
    } catch (const std::range_error &e) {
        return zelError(zelError::Overflow, {}, QString::fromLocal8Bit(e.what()));
    } catch (const std::bad_alloc &) {
        return zelError(zelError::OutOfMemory);
    } catch (const std::out_of_range &e) {
        return zelError(zelError::SubscriptOutOfRange, {}, QString::fromLocal8Bit(e.what()));
    } catch (const std::bad_cast &) {
        return zelError(zelError::TypeMismatch);
    } catch (const std::bad_variant_access &) {
        return zelError(zelError::TypeMismatch);
    } catch (const std::exception &e) {
        return zelError(zelError::InvalidProcedureCall, {}, QString::fromLocal8Bit(e.what()));
    } catch (...) {
        return zelError(zelError::InvalidProcedureCall);
    }
}
