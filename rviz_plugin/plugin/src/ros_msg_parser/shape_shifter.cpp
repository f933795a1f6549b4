#include "shape_shifter.h"

namespace RosMsgParser {

void ShapeShifter::morph(const std::string& md5sum, const std::string& dataType, const std::string& messageDefinition)
{
    md5 = md5sum;
    datatype = dataType;
    definition = messageDefinition;
}

} // namespace RosMsgParser
