#include "base_setting_property.h"

#include "base_classifications.h"

namespace rviz_plugin {

namespace {
constexpr unsigned newRowValue = 255;

QString SettingDescription(const QString& subject)
{
    return QString("Allows users to set the text and color of the rectangle or polygon that identifies %1, which "
                   "correspond toValue under Classification. To create a Classification record, click Add. A maximum "
                   "of 256 records can be configured.")
        .arg(subject);
}
} // namespace

BaseSettingProperty::BaseSettingProperty(const QString& description, std::unique_ptr<IppParameters>& params,
                                         Classifications IppConfig::*rows, ColorPool::ColorType type,
                                         rviz::Property* parent)
    : ClassificationTableProperty(description, maxRowCount, parent), parameters(params), table(rows), colorType(type)
{
}

void BaseSettingProperty::InitDefaultValue(const std::vector<std::string>& texts)
{
    ClearSettingClassificationItems();
    for (unsigned value = 0; value < texts.size(); ++value) {
        AddClassificationItem(value, QString::fromStdString(texts[value]));
    }
    SetName();
}

BaseClassifications* BaseSettingProperty::GetRow(int index) const
{
    return qobject_cast<BaseClassifications*>(childAt(index));
}

BaseClassifications* BaseSettingProperty::AddClassificationItem(unsigned value, const QString& text)
{
    BaseClassifications* row = CreateClassificationItem();
    addChild(row);
    row->Initialize(value, ColorPool::GetColor(value, colorType), text);
    connect(row, &BaseClassifications::DeletedClassification, this, &BaseSettingProperty::OnDeletedClassification);
    return row;
}

void BaseSettingProperty::CleanIppClassifications()
{
    std::lock_guard<std::mutex> lock(parameters->mutex);
    (parameters->config.*table).clear();
    parameters->configChanged = true;
}

void BaseSettingProperty::AddNewRow()
{
    AddClassificationItem(newRowValue, QString());
}

rviz::Property* BaseSettingProperty::AddPlaceholderRow()
{
    return AddClassificationItem(0, QString());
}

void BaseSettingProperty::ClearTable()
{
    CleanIppClassifications();
}

void BaseSettingProperty::RewriteTable()
{
    CleanIppClassifications();
    for (int i = 0; i < GetRowCount(); ++i) {
        GetRow(i)->RefreshIppParameterData();
    }
}

void BaseSettingProperty::EraseEntry(unsigned value)
{
    std::lock_guard<std::mutex> lock(parameters->mutex);
    (parameters->config.*table).erase(value);
    parameters->configChanged = true;
}

ObjectSettingProperty::ObjectSettingProperty(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseSettingProperty(SettingDescription("an object"), params, &IppConfig::objectClassifications,
                          ColorPool::Objects, parent)
{
}

BaseClassifications* ObjectSettingProperty::CreateClassificationItem()
{
    return new ObjectClassifications(parameters);
}

ImageRectangleSettingProperty::ImageRectangleSettingProperty(std::unique_ptr<IppParameters>& params,
                                                             rviz::Property* parent)
    : BaseSettingProperty(SettingDescription("a traffic light"), params, &IppConfig::imageRectangleClassifications,
                          ColorPool::TrafficLights, parent)
{
}

BaseClassifications* ImageRectangleSettingProperty::CreateClassificationItem()
{
    return new ImgRectClassifications(parameters);
}

ImageLineSettingProperty::ImageLineSettingProperty(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseSettingProperty(SettingDescription("a road line"), params, &IppConfig::imageLineClassifications,
                          ColorPool::Lines, parent)
{
}

BaseClassifications* ImageLineSettingProperty::CreateClassificationItem()
{
    return new ImgLineClassifications(parameters);
}

SemanticSegmentationSettingProperty::SemanticSegmentationSettingProperty(std::unique_ptr<IppParameters>& params,
                                                                         rviz::Property* parent)
    : BaseSettingProperty(SettingDescription("a segmentation class"), params,
                          &IppConfig::semanticSegmentationClassifications, ColorPool::SemanticSegmentation, parent)
{
}

BaseClassifications* SemanticSegmentationSettingProperty::CreateClassificationItem()
{
    return new SemanticSegmentationClassifications(parameters);
}

} // namespace rviz_plugin
