#ifndef RVIZ_PLUGIN_OBJECT_ARRAY_SETTINGS_H
#define RVIZ_PLUGIN_OBJECT_ARRAY_SETTINGS_H

#include <QColor>
#include <QString>

#include <array>
#include <map>

namespace rviz_plugin {

// How the objects of one class value look in the 3D view.
struct ObjectClassification {
    QColor cuboidColor;
    QColor polygonColor;
    float cuboidAlpha = 0.5F;
    QString text;
};

// The fixed pool of colour pairs that new classification records start with.
class ObjectColors {
public:
    enum ColorCol { Cuboid = 0, Polygon = 1 };
    static constexpr int count = 14;

    // The pair at index modulo 14, alpha 0.5; any other column is black.
    static QColor GetColor(unsigned index, int column);
};

// Every setting of an object array display, shared by its visual, checker and properties.
struct ObjectArraySettings {
    static constexpr unsigned maxClassificationRecords = 255;

    bool cubeEnabled = true;
    bool polygonEnabled = true;
    bool velocityEnabled = true;
    QColor arrowColor = QColor(255, 0, 255, 255);
    std::array<float, 3> arrowScale{0.4F, 0.2F, 0.2F};
    float textScale = 1.0F;
    QColor textColor = QColor(255, 255, 255, 255);
    bool objectInfoEnabled = true;
    bool showClassification = true;
    bool showClassificationConfidence = false;
    bool showVelocity = true;
    bool showObjectId = false;
    bool showTrackId = true;
    bool showExistenceProbability = false;
    bool showBoxSize = false;
    bool showBoxCenter = false;
    bool showBoxOrientation = false;
    bool showTextDisplay = false;
    unsigned maxObjectCount = 100;
    std::map<int, ObjectClassification> classifications = DefaultClassifications();

    // Records 0 "unknown_obstacle", 1 "pedestrian", 2 "non_motorized_vehicle", 3 "vehicle".
    static std::map<int, ObjectClassification> DefaultClassifications();
    // A record for value with the pool's colours; text as given.
    static ObjectClassification NewClassification(unsigned value, const QString& text);
};

} // namespace rviz_plugin

#endif
