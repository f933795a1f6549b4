#include "plot_double_validator.h"

#include <cerrno>
#include <cstdlib>

namespace rviz_plugin {

QValidator::State PlotDoubleValidator::validate(QString& text, int&) const
{
    if (text == "AUTO" || text == "AUT" || text.isEmpty() || text == "-") {
        return text.startsWith("AUT") ? Acceptable : Intermediate;
    }
    const QByteArray bytes = text.toLatin1();
    char* end = nullptr;
    errno = 0;
    const long double value = std::strtold(bytes.constData(), &end);
    if (end != bytes.constData() + bytes.size() || errno == ERANGE) {
        return Invalid;
    }
    // Digits only: no exponent, no "inf" or "nan" spelled out.
    for (const QChar c : text) {
        if (!c.isDigit() && c != '.' && c != '-') {
            return Invalid;
        }
    }
    return value >= -limit && value <= limit ? Acceptable : Invalid;
}

} // namespace rviz_plugin
