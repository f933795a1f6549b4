#include "base_setting_property.h"

#include "base_classifications.h"

#include "classification_editors/classification_setting_editor.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/properties/property_tree_model.h>
#endif

namespace rviz_plugin {

namespace {
const char* const settingKey = "Classification Setting";
const char* const rowKeyPrefix = "Classification ";
const char* const addHint = "Click here to show the Add button";
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
    : rviz::Property(settingKey, 0, description, parent), parameters(params), table(rows), colorType(type)
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
    ++rowCount;
    return row;
}

void BaseSettingProperty::CleanIppClassifications()
{
    std::lock_guard<std::mutex> lock(parameters->mutex);
    (parameters->config.*table).clear();
    parameters->configChanged = true;
}

void BaseSettingProperty::ClearSettingClassificationItems()
{
    removeChildren();
    rowCount = 0;
    canAdd = true;
    CleanIppClassifications();
    SetName();
}

void BaseSettingProperty::SetName()
{
    rviz::Property::setValue(rowCount);
    if (model_ != nullptr) {
        model_->emitDataChanged(this);
    }
}

QVariant BaseSettingProperty::getViewData(int column, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        if (column == 0) {
            return QString("%1 (%2)").arg(settingKey).arg(rowCount);
        }
        return QString(addHint);
    }
    return rviz::Property::getViewData(column, role);
}

bool BaseSettingProperty::setValue(const QVariant& /*value*/)
{
    // The value cell is a button; the count follows the rows.
    return false;
}

QWidget* BaseSettingProperty::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/)
{
    auto* editor = new ClassificationSettingEditor(canAdd && rowCount < maxRowCount, parent);
    connect(editor, &QPushButton::clicked, this, &BaseSettingProperty::OnAddButtonClick);
    connect(this, &BaseSettingProperty::changed, editor,
            [this, editor]() { editor->setEnabled(canAdd && rowCount < maxRowCount); });
    return editor;
}

void BaseSettingProperty::OnAddButtonClick()
{
    if (rowCount >= maxRowCount) {
        canAdd = false;
        Q_EMIT changed();
        return;
    }
    AddClassificationItem(newRowValue, QString());
    SetName();
    expand();
    Q_EMIT changed();
}

void BaseSettingProperty::OnDeletedClassification(const unsigned& value)
{
    auto* row = qobject_cast<BaseClassifications*>(sender());
    if (row == nullptr || row->getParent() != this) {
        return;
    }
    {
        std::lock_guard<std::mutex> lock(parameters->mutex);
        (parameters->config.*table).erase(value);
        parameters->configChanged = true;
    }
    // The row is inside its own signal: take it out of the tree now, free it afterwards.
    takeChildAt(row->rowNumberInParent());
    row->deleteLater();
    --rowCount;
    canAdd = true;
    SetName();
    Q_EMIT changed();
}

void BaseSettingProperty::save(rviz::Config config) const
{
    config.mapSetValue("Value", rowCount);
    for (int i = 0; i < numChildren(); ++i) {
        childAt(i)->save(config.mapMakeChild(QString("%1%2").arg(rowKeyPrefix).arg(i + 1)));
    }
}

void BaseSettingProperty::load(const rviz::Config& config)
{
    if (!config.isValid()) {
        return;
    }
    removeChildren();
    rowCount = 0;
    canAdd = true;
    CleanIppClassifications();
    for (int i = 1; i <= maxRowCount; ++i) {
        const rviz::Config saved = config.mapGetChild(QString("%1%2").arg(rowKeyPrefix).arg(i));
        if (!saved.isValid()) {
            break;
        }
        AddClassificationItem(0, QString())->load(saved);
    }
    // A loaded row first held a placeholder value: write all entries again, in row order.
    CleanIppClassifications();
    for (int i = 0; i < numChildren(); ++i) {
        GetRow(i)->RefreshIppParameterData();
    }
    SetName();
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
