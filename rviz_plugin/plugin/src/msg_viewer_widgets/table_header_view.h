#ifndef RVIZ_PLUGIN_TABLE_HEADER_VIEW_H
#define RVIZ_PLUGIN_TABLE_HEADER_VIEW_H

#include <QHeaderView>
#include <QMap>
#include <QVector>

namespace rviz_plugin {

class EditLabel;
class MsgRecord;
class TableModel;

// The table's header: an EditLabel over each section with the column's nick name and menu.
class TableHeaderView : public QHeaderView {
    Q_OBJECT
public:
    TableHeaderView(MsgRecord& record, TableModel& model, QWidget* parent = nullptr);

    void UpdateHeader(const QString& topic);
    QString GetHeaderName(int column) const;
    QString GetDisplayTopic() const { return topic; }
    EditLabel* GetLabel(int column) const { return editLabels.value(column); }
    int GetBlankColumn() const { return blankColumn; }
    void SetBackgroundColor(const QString& color);

public Q_SLOTS:
    void OnColorTitlesChanged(const QVector<QString>& titles, const QMap<QString, QString>& colorMap);
    void UpdateNickName(int column, const QString& name);

Q_SIGNALS:
    void DeleteHeader(int column);
    void SetBlankDataIsVisible(bool show, int column, bool ascending);
    void SortColumnData(int column, bool ascending);
    void ConvertConstants(int column);
    void SignalConfigChanged();

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    void SyncLabels();
    QString FieldOfTitle(const QString& title) const;
    void DeleteEditHeader(int column);
    void OnBlankDataIsVisibleSeted(int column, bool show, bool ascending);
    void OnColumnDataSorted(int column, bool ascending);

    MsgRecord& record;
    TableModel& model;
    QString topic;
    QVector<EditLabel*> editLabels;
    QVector<QString> shownTitles;
    int blankColumn = -1;
    QString backgroundColor = "white";
};

} // namespace rviz_plugin

#endif
