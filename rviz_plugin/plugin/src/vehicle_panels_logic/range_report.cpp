#include "range_report.h"

#include "foundation/logger.h"

#include <iomanip>
#include <sstream>
#include <utility>

namespace rviz_plugin {

RangeReport::RangeReport(std::string module, std::string typeName, int fieldWidth, int precision)
    : module(std::move(module)), typeName(std::move(typeName)), fieldWidth(fieldWidth), precision(precision)
{
}

bool RangeReport::CheckReal(const char* field, double value, double low, double high, double tolerance) const
{
    if (value >= low - tolerance && value <= high + tolerance) {
        return true;
    }
    Fail(field, Fixed(value), Fixed(low), Fixed(high));
    return false;
}

bool RangeReport::CheckInteger(const char* field, long long value, long long low, long long high) const
{
    if (value >= low && value <= high) {
        return true;
    }
    Fail(field, std::to_string(value), std::to_string(low), std::to_string(high));
    return false;
}

void RangeReport::Fail(const std::string& field, const std::string& attribute, const std::string& low,
                       const std::string& high) const
{
    Orsa::Logger::GetInstance().WriteLog(
        module, Orsa::LogLevel::Error,
        "The " + field + " attribute(" + attribute + ") of the " + typeName +
            " data type is out of range. Adjust the value to ensure it is within [" + low + ", " + high + "])");
}

std::string RangeReport::Fixed(double value) const
{
    std::ostringstream text;
    text << std::fixed << std::setw(fieldWidth) << std::setprecision(precision) << value;
    return text.str();
}

} // namespace rviz_plugin
