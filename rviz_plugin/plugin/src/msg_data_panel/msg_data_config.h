#ifndef RVIZ_PLUGIN_MSG_DATA_CONFIG_H
#define RVIZ_PLUGIN_MSG_DATA_CONFIG_H

#include "msg_view_models/view_text.h"
#include "msg_viewer_panel/msg_record_struct.h"

#include <rviz/config.h>

#include <QObject>

#include <vector>

namespace rviz_plugin {

class KeyValueGrid;
class MsgDataPanel;
class MsgRecord;
class TableModel;

// Writes the user panels of a viewer into the rviz configuration and reads them back: name, dock
// rectangle, selection, column or item order, nick names, sort or blank lines, chosen constants.
class MsgDataConfig : public QObject {
    Q_OBJECT
public:
    explicit MsgDataConfig(const MsgDataPanel& panel, QObject* parent = nullptr);

    void Save(rviz::Config config) const;
    // The saved panels in their order; nothing is required of the file.
    static std::vector<MsgRecordStruct::PanelData> Load(const rviz::Config& config);

private:
    void SavePanel(rviz::Config config, int index) const;
    void SaveReeditPanel(rviz::Config config, int index) const;
    void SaveArrayPanel(rviz::Config config, int index) const;
    void SaveKeyValuePanel(rviz::Config config, int index) const;
    static void SaveConstants(rviz::Config field, const ConstantList& constants);
    static void SaveField(rviz::Config field, const QString& name, const QString& type, const QString& nickName,
                          const ConstantList& constants);
    // The four channels of a colour as fields numbered from number on; the next number.
    // A panel whose view has no data yet (never shown, or its topics silent): what was loaded, or the
    // record's selection for a panel edited since.
    void SaveArrayPanelWithoutData(rviz::Config config, int index) const;
    void SaveKeyValuePanelWithoutData(rviz::Config config, int index) const;
    static void SaveFieldList(rviz::Config fields, const QVector<MsgRecordStruct::FieldData>& list);
    static QVector<MsgRecordStruct::FieldData> SelectedFields(const MsgRecord& record, const std::string& topic);
    static int SaveColorChannels(rviz::Config fields, int number, const QString& group, const QString& nickName);

    static MsgRecordStruct::PanelData LoadPanel(const rviz::Config& config);
    static void LoadReeditPanel(const rviz::Config& config, MsgRecordStruct::PanelData& panel);
    static void LoadArrayPanel(const rviz::Config& config, MsgRecordStruct::PanelData& panel);
    static void LoadKeyValuePanel(const rviz::Config& config, MsgRecordStruct::PanelData& panel);
    static QVector<MsgRecordStruct::FieldData> LoadFields(const rviz::Config& config);
    static MsgRecordStruct::FieldData LoadField(const rviz::Config& config);

    const MsgDataPanel& panel;
};

} // namespace rviz_plugin

#endif
