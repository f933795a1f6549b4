#ifndef RVIZ_PLUGIN_RANGE_REPORT_H
#define RVIZ_PLUGIN_RANGE_REPORT_H

#include <string>

namespace rviz_plugin {

// Range checks of one message type's fields. A failure writes one error line under the module:
// "The <field> attribute(<value>) of the <type> data type is out of range. Adjust the value to ensure it
// is within [<low>, <high>])". Real values and their limits are printed in fixed notation with the
// report's field width and precision; integers as decimal numbers (an uint8 never as a character).
class RangeReport {
public:
    RangeReport(std::string module, std::string typeName, int fieldWidth = 4, int precision = 16);

    // Passes within [low - tolerance, high + tolerance]; NaN never passes.
    bool CheckReal(const char* field, double value, double low, double high, double tolerance = 0) const;
    // Passes within [low, high].
    bool CheckInteger(const char* field, long long value, long long low, long long high) const;
    // Logs one failure with attribute as the text inside "attribute(...)".
    void Fail(const std::string& field, const std::string& attribute, const std::string& low,
              const std::string& high) const;

    std::string Fixed(double value) const;

private:
    std::string module;
    std::string typeName;
    int fieldWidth;
    int precision;
};

} // namespace rviz_plugin

#endif
