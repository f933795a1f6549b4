#ifndef RVIZ_PLUGIN_CLASSIFICATION_SUMMARY_H
#define RVIZ_PLUGIN_CLASSIFICATION_SUMMARY_H

#include <QString>

namespace rviz_plugin {

// What a classification row shows as its value, and what a user may type there instead of editing
// the row's children: "value, text" (objects, traffic lights), "value, solid|dash, thickness" (road
// lines), "value" (segmentation).
struct ClassificationSummary {
    enum Kind { Labelled, Line, Segmentation };

    unsigned value = 0;
    QString text;
    bool isSolid = true;
    int lineThickness = 2;

    static constexpr unsigned maxValue = 255;
    static constexpr int minLineThickness = 1;
    static constexpr int maxLineThickness = 100;
    static constexpr int maxTextLength = 20;

    QString Format(Kind kind) const;
    // Takes a typed summary; false, and nothing changed, when it does not parse or a field lies
    // outside its range.
    bool Parse(Kind kind, const QString& typed);
};

// text, or its first 20 characters followed by "..." when it is longer.
QString TrimClassificationText(const QString& text);

} // namespace rviz_plugin

#endif
