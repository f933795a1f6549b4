#ifndef RVIZ_PLUGIN_BASE_SETTING_PROPERTY_H
#define RVIZ_PLUGIN_BASE_SETTING_PROPERTY_H

#include "overlay/ipp_parameters.h"

#include "classification_editors/classification_table_property.h"
#include "foundation/color_pool.h"

#include <memory>
#include <vector>

namespace rviz_plugin {

class BaseClassifications;

// The "Classification Setting" node of an input: its rows write the input's table in the item's settings.
class BaseSettingProperty : public ClassificationTableProperty {
    Q_OBJECT
public:
    static constexpr int maxRowCount = 256;

    BaseSettingProperty(const QString& description, std::unique_ptr<IppParameters>& parameters,
                        Classifications IppConfig::*table, ColorPool::ColorType colorType,
                        rviz::Property* parent = nullptr);

    // One row per text, with values counting from 0; replaces the rows and the table.
    void InitDefaultValue(const std::vector<std::string>& texts);
    BaseClassifications* GetRow(int index) const;
    // A row with ColorPool's colour for value; "not_configured" when text is empty.
    virtual BaseClassifications* AddClassificationItem(unsigned value, const QString& text);
    virtual void CleanIppClassifications();

protected:
    virtual BaseClassifications* CreateClassificationItem() = 0;
    void AddNewRow() override;
    rviz::Property* AddPlaceholderRow() override;
    void ClearTable() override;
    void RewriteTable() override;
    void EraseEntry(unsigned value) override;

    std::unique_ptr<IppParameters>& parameters;

private:
    Classifications IppConfig::*table;
    ColorPool::ColorType colorType;
};

class ObjectSettingProperty : public BaseSettingProperty {
    Q_OBJECT
public:
    ObjectSettingProperty(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);

protected:
    BaseClassifications* CreateClassificationItem() override;
};

class ImageRectangleSettingProperty : public BaseSettingProperty {
    Q_OBJECT
public:
    ImageRectangleSettingProperty(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);

protected:
    BaseClassifications* CreateClassificationItem() override;
};

class ImageLineSettingProperty : public BaseSettingProperty {
    Q_OBJECT
public:
    ImageLineSettingProperty(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);

protected:
    BaseClassifications* CreateClassificationItem() override;
};

class SemanticSegmentationSettingProperty : public BaseSettingProperty {
    Q_OBJECT
public:
    SemanticSegmentationSettingProperty(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);

protected:
    BaseClassifications* CreateClassificationItem() override;
};

} // namespace rviz_plugin

#endif
