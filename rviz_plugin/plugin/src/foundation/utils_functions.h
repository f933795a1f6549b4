#ifndef ORSA_UTILS_FUNCTIONS_H
#define ORSA_UTILS_FUNCTIONS_H

#include "logger.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace Orsa {
namespace UtilsFunctions {

// Converts text with the standard conversion for T (std::stoi, std::stod, std::stold, std::stoull).
// A text that is not a number, or one out of range, logs a warning under module and gives 0.
template <typename T>
T StringToNumber(const std::string& text, const std::string& module)
{
    static_assert(std::is_same<T, int32_t>::value || std::is_same<T, double>::value ||
                      std::is_same<T, long double>::value || std::is_same<T, uint64_t>::value ||
                      std::is_same<T, unsigned>::value,
                  "no standard conversion for this type");
    try {
        if constexpr (std::is_same<T, int32_t>::value) {
            return std::stoi(text);
        } else if constexpr (std::is_same<T, double>::value) {
            return std::stod(text);
        } else if constexpr (std::is_same<T, long double>::value) {
            return std::stold(text);
        } else {
            const unsigned long long value = std::stoull(text);
            if (value > std::numeric_limits<T>::max()) {
                throw std::out_of_range("stoull");
            }
            return static_cast<T>(value);
        }
    } catch (const std::invalid_argument&) {
        Logger::GetInstance().WriteLog(module, LogLevel::Warn,
                                       "\"std::invalid_argument\" error occurred when converting the string to an "
                                       "integer. The integer will be set to 0.");
    } catch (const std::out_of_range&) {
        Logger::GetInstance().WriteLog(module, LogLevel::Warn,
                                       "\"std::out_of_range\" error occurred when converting the string to an "
                                       "integer. The integer will be set to 0.");
    }
    return T(0);
}

} // namespace UtilsFunctions
} // namespace Orsa

#endif
