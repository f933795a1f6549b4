#ifndef RVIZ_PLUGIN_ROUTE_WIDGET_H
#define RVIZ_PLUGIN_ROUTE_WIDGET_H

#include <OgreVector3.h>

#include <QFrame>
#include <QStringList>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QToolButton;

namespace rviz_plugin {

class PointWidget;

// One route in the panel: its name, the start frame, the way points and the end point, with the
// buttons that send, edit, delete and clear it. Typed coordinates are "x,y,z"; an invalid one shows
// red and is not sent.
class RouteWidget : public QFrame {
    Q_OBJECT
public:
    static constexpr int itemHeight = 36;
    static constexpr int maxWayPoints = 15;
    static constexpr int buttonSize = 15;
    static constexpr const char* defaultStart = "0.00,0.00 <Fixed Frame>";

    struct SaveData {
        QString name;
        QString start;
        QStringList wayPoints;
        QString end;
    };

    explicit RouteWidget(QWidget* parent = nullptr);

    void Init();
    void GenerateData(int row);
    // Inserts a way point below the one of the clicked row (-1: at the top).
    void AddPointWidget(int clickedRow);
    void DeletePointWidget(int row);
    void DeleteAllPointWidget();
    static bool VerifyPoint(const QString& text, Ogre::Vector3& point);
    bool VerifyLineEditData(const QString& text, int row);
    void UpdateEndLineEditStyle();
    void UpdateSaveData();
    void SetEditable(bool editable);
    void SetDisEditabled();
    void RefreshComboBox(const QStringList& frames);
    void ViaPointOverCount(bool over);
    void SetViaPointName();
    void ClickEditButton();
    void ClickSaveButton();
    void SetChecked(bool checked);
    // Writes a picked point into the box being chosen.
    void SetPointText(int row, const QString& text);
    void Restore(const SaveData& data);
    const SaveData& GetSaveData() const { return saveData; }
    int GetWayPointCount() const;
    QString GetPointText(int row) const;
    int GetPreferredHeight() const;

Q_SIGNALS:
    void ResizeHeight();
    void SendDeleteItemSignal();
    void SaveToConfig();
    void AddViaPoint(int row);
    void DeleteViaPoint(int row);
    void LineEditFocusIn(int row);
    void SendLineEditingFinishedPoint(int row, Ogre::Vector3 point);
    void SendPublishClearRouteData();
    void SendPublishRouteData();
    void SendFixedFrameChange(QString frame);
    void SendCancelButtonClick();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QLineEdit* LineEditOf(int row) const;
    int RowOf(PointWidget* widget) const;
    void ConnectPointWidget(PointWidget* widget);
    void LineEditFinished(int row);
    void ResizeList();

    QLineEdit* nameEdit = nullptr;
    QToolButton* deliverButton = nullptr;
    QToolButton* editButton = nullptr;
    QToolButton* deleteButton = nullptr;
    QToolButton* removeButton = nullptr;
    QPushButton* saveButton = nullptr;
    QPushButton* cancelButton = nullptr;
    QComboBox* startComboBox = nullptr;
    QToolButton* addFirstButton = nullptr;
    QListWidget* pointList = nullptr;
    QLineEdit* endLineEdit = nullptr;
    SaveData saveData;
    bool editable = true;
};

} // namespace rviz_plugin

#endif
