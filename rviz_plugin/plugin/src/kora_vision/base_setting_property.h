#ifndef RVIZ_PLUGIN_BASE_SETTING_PROPERTY_H
#define RVIZ_PLUGIN_BASE_SETTING_PROPERTY_H

#include "overlay/ipp_parameters.h"

#include "foundation/color_pool.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

#include <memory>
#include <vector>

namespace rviz_plugin {

class BaseClassifications;

// The "Classification Setting" node of an input: its rows, with an add button in the value cell. It
// shows "Classification Setting (n)" and is saved under "Classification Setting" whatever n is.
class BaseSettingProperty : public rviz::Property {
    Q_OBJECT
public:
    static constexpr int maxRowCount = 256;

    BaseSettingProperty(const QString& description, std::unique_ptr<IppParameters>& parameters,
                        Classifications IppConfig::*table, ColorPool::ColorType colorType,
                        rviz::Property* parent = nullptr);

    // One row per text, with values counting from 0; replaces the rows and the table.
    void InitDefaultValue(const std::vector<std::string>& texts);
    void SetName();
    void ClearSettingClassificationItems();
    int GetRowCount() const { return rowCount; }
    BaseClassifications* GetRow(int index) const;
    // A row with ColorPool's colour for value; "not_configured" when text is empty.
    virtual BaseClassifications* AddClassificationItem(unsigned value, const QString& text);
    virtual void CleanIppClassifications();

    QVariant getViewData(int column, int role) const override;
    bool setValue(const QVariant& value) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option) override;
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;

public Q_SLOTS:
    void OnAddButtonClick();

private Q_SLOTS:
    void OnDeletedClassification(const unsigned& value);

protected:
    virtual BaseClassifications* CreateClassificationItem() = 0;

    std::unique_ptr<IppParameters>& parameters;

private:
    Classifications IppConfig::*table;
    ColorPool::ColorType colorType;
    int rowCount = 0;
    bool canAdd = true;
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
