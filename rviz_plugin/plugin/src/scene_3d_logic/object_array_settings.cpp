#include "object_array_settings.h"

namespace rviz_plugin {

namespace {
struct ColorPair {
    int cuboid[3];
    int polygon[3];
};

constexpr ColorPair colorPairs[ObjectColors::count] = {
    {{0, 159, 255}, {73, 217, 224}},   {{41, 231, 128}, {20, 219, 187}},  {{255, 83, 83}, {49, 122, 255}},
    {{60, 213, 255}, {249, 255, 22}},  {{255, 196, 0}, {224, 82, 37}},    {{118, 213, 37}, {252, 63, 165}},
    {{89, 101, 255}, {155, 74, 255}},  {{122, 78, 255}, {234, 91, 255}},  {{74, 204, 19}, {193, 222, 0}},
    {{12, 224, 109}, {23, 201, 210}},  {{0, 159, 255}, {11, 217, 183}},   {{46, 200, 242}, {38, 118, 255}},
    {{86, 62, 255}, {153, 70, 254}},   {{103, 53, 255}, {206, 88, 223}},
};
} // namespace

QColor ObjectColors::GetColor(unsigned index, int column)
{
    if (column != Cuboid && column != Polygon) {
        return QColor(Qt::black);
    }
    const ColorPair& pair = colorPairs[index % count];
    const int* rgb = column == Cuboid ? pair.cuboid : pair.polygon;
    QColor color(rgb[0], rgb[1], rgb[2]);
    color.setAlphaF(0.5);
    return color;
}

std::map<int, ObjectClassification> ObjectArraySettings::DefaultClassifications()
{
    std::map<int, ObjectClassification> table;
    const char* const texts[] = {"unknown_obstacle", "pedestrian", "non_motorized_vehicle", "vehicle"};
    for (unsigned value = 0; value < 4; ++value) {
        table[static_cast<int>(value)] = NewClassification(value, texts[value]);
    }
    return table;
}

ObjectClassification ObjectArraySettings::NewClassification(unsigned value, const QString& text)
{
    ObjectClassification record;
    record.cuboidColor = ObjectColors::GetColor(value, ObjectColors::Cuboid);
    record.polygonColor = ObjectColors::GetColor(value, ObjectColors::Polygon);
    record.cuboidAlpha = 0.5F;
    record.text = text;
    return record;
}

} // namespace rviz_plugin
