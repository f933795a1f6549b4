#ifndef RVIZ_PLUGIN_RADAR_INFO_PROPERTY_H
#define RVIZ_PLUGIN_RADAR_INFO_PROPERTY_H

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#endif

#include <QColor>

#include <vector>

namespace rviz {
class ColorProperty;
class FloatProperty;
} // namespace rviz

namespace rviz_plugin {

// One field the radar text may show. A disabled one can't be ticked.
class RadarInfoItemProperty : public rviz::BoolProperty {
    Q_OBJECT
public:
    RadarInfoItemProperty(const QString& name, bool ticked, const QString& description, rviz::Property* parent);

    void SetDisable(bool disable);
    bool IsDisabled() const { return disabled; }
    Qt::ItemFlags getViewFlags(int column) const override;

private:
    bool disabled = false;
};

// "Info" of a radar display: the text's colour, alpha and size, and the fields it shows, at most three
// at a time (when three are ticked the others are disabled).
class RadarInfoProperty : public rviz::BoolProperty {
    Q_OBJECT
public:
    struct Field {
        QString name;
        QString description;
    };

    RadarInfoProperty(bool shown, const QColor& textColor, float textScale, const QString& description,
                      rviz::Property* parent);

    // Adds the managed children, ticked as given.
    void AddFields(const std::vector<Field>& fields, const std::vector<bool>& ticked);
    QColor TextColor() const;
    float TextScale() const;
    std::vector<bool> TickedFields() const;
    RadarInfoItemProperty* FieldProperty(std::size_t index) const { return items.at(index); }

Q_SIGNALS:
    void InfoChanged();

private Q_SLOTS:
    void OnChanged();

private:
    void UpdateEnabledFields();

    rviz::ColorProperty* textColorProperty;
    rviz::FloatProperty* textAlphaProperty;
    rviz::FloatProperty* textSizeProperty;
    std::vector<RadarInfoItemProperty*> items;
};

} // namespace rviz_plugin

#endif
