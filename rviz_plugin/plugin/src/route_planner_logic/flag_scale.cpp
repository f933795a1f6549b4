#include "flag_scale.h"

namespace rviz_plugin {

namespace {
constexpr double smallest = 0.0001;
constexpr double largest = 100000.0;
constexpr double invalid = -1.0;
} // namespace

double FlagScaleFactor(const std::string& viewClassName, double viewportWidth, double worldPerPixel, double distance)
{
    if (viewClassName.find("TopDownOrtho") != std::string::npos) {
        const double w = viewportWidth * worldPerPixel * 0.5;
        if (!(w >= smallest)) {
            return invalid;
        }
        return w > largest ? 0.00017 : 17.0 / w;
    }
    const double factor = distance / 70.0;
    return factor >= smallest && factor <= largest ? factor : invalid;
}

} // namespace rviz_plugin
