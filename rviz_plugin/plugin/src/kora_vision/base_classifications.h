#ifndef RVIZ_PLUGIN_BASE_CLASSIFICATIONS_H
#define RVIZ_PLUGIN_BASE_CLASSIFICATIONS_H

#include "kora_vision_logic/classification_summary.h"
#include "overlay/ipp_parameters.h"

#include "classification_editors/classification_row_property.h"

#include <memory>

namespace rviz {
class BoolProperty;
class ColorProperty;
class FloatProperty;
class IntProperty;
class StringProperty;
} // namespace rviz

namespace rviz_plugin {

// One "Classification" row: how the results of one class value look. Every change is written to
// the item's settings under their mutex; the row's value column shows its summary.
class BaseClassifications : public ClassificationRowProperty {
    Q_OBJECT
public:
    BaseClassifications(const QString& description, ClassificationSummary::Kind kind,
                        std::unique_ptr<IppParameters>& parameters, Classifications IppConfig::*table,
                        rviz::Property* parent = nullptr);

    void Initialize(const unsigned& value, const QColor& color, const QString& text);
    ClassificationSummary GetSummary() const;
    // Writes the row's entry into the settings.
    void RefreshIppParameterData();

    // A typed summary; one that does not parse leaves the row as it was.
    bool setValue(const QVariant& value) override;

private Q_SLOTS:
    void UpdateClassificationValue();
    void UpdateClassificationData();

private:
    void ChangeContentValue(const ClassificationSummary& summary);
    void SetPropertyValueString();
    void ReplaceEntry(unsigned oldValue) override;

    ClassificationSummary::Kind kind;
    std::unique_ptr<IppParameters>& parameters;
    Classifications IppConfig::*table;
    rviz::StringProperty* textProperty = nullptr;
    rviz::ColorProperty* colorProperty = nullptr;
    rviz::BoolProperty* isSolidProperty = nullptr;
    rviz::IntProperty* lineThicknessProperty = nullptr;
    rviz::FloatProperty* alphaProperty = nullptr;
};

class ObjectClassifications : public BaseClassifications {
    Q_OBJECT
public:
    ObjectClassifications(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

class ImgRectClassifications : public BaseClassifications {
    Q_OBJECT
public:
    ImgRectClassifications(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

class ImgLineClassifications : public BaseClassifications {
    Q_OBJECT
public:
    ImgLineClassifications(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

class SemanticSegmentationClassifications : public BaseClassifications {
    Q_OBJECT
public:
    SemanticSegmentationClassifications(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

} // namespace rviz_plugin

#endif
