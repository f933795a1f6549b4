#ifndef RVIZ_PLUGIN_CURVE_SAMPLER_H
#define RVIZ_PLUGIN_CURVE_SAMPLER_H

#include <QObject>
#include <QPointF>
#include <QString>
#include <QTimer>
#include <QVector>

#include <string>

namespace rviz_plugin {

class PlotModel;
class PlotRecord;

// Makes the points of one line from the messages of its record and sends them in batches, once a
// second. Against time x is the message's stamp, or the wall clock for a message without one; a
// time that goes back starts a new pass (a replay starting over).
class CurveSampler : public QObject {
    Q_OBJECT
public:
    static constexpr int sendInterval = 1000;
    // A step back in time of more than this is a new pass.
    static constexpr float loopTolerance = 0.0001f;

    CurveSampler(PlotRecord& record, const PlotModel& model);

    void SetCurveIndex(int index) { curveIndex = index; }
    int GetCurveIndex() const { return curveIndex; }
    void SetIsMsgPath(bool msgPath) { isMsgPath = msgPath; }
    bool IsMsgPath() const { return isMsgPath; }
    // Selection paths with their element when in an array.
    void SetXField(const QString& field);
    void SetYField(const QString& field);
    const QString& GetXField() const { return xField; }
    const QString& GetYField() const { return yField; }
    bool HasNewPoint() const { return hasNewPoint; }
    const QVector<QPointF>& GetPoints() const { return points; }

    // Points are made only while started.
    void StartUpdateCurve();
    void StopUpdateCurve();
    // Empties the points waiting to be sent, keeping their memory.
    void ResetCurve();

public Q_SLOTS:
    void SlotUpdateCurve(const QString& topic);
    void SlotSendPoints();

Q_SIGNALS:
    void SignalUpdateCurve(int index, const QVector<QPointF>& points, const QVector<double>& timestamps);
    void SignalLoopBegin(int index);

private:
    bool GetCurvePointTimestamp(double& x, double t, double& y) const;
    bool GetCurvePointMsgPath(double& x, double& y) const;
    // The number at a field: an element's captured text, or the pair of its topic's key-value data.
    bool GetValue(const std::string& topic, const std::string& key, const std::string& fieldKey, bool isArray,
                  double& value) const;

    PlotRecord& record;
    const PlotModel& model;
    QVector<QPointF> points;
    QVector<double> timestamps;
    bool isMsgPath = false;
    int curveIndex = 0;
    QString xField;
    QString yField;
    QString yTopic;
    // The fields as the data handler names them.
    std::string xTopicText, xKeyText, xFieldKeyText, xFieldName;
    std::string yTopicText, yKeyText, yFieldKeyText, yFieldName, yStampPath;
    bool xIsArray = false;
    bool yIsArray = false;
    bool hasNewPoint = false;
    double lastTime = 0.0;
    QTimer sendTimer;
};

} // namespace rviz_plugin

#endif
