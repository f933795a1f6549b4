#include "curve_sampler.h"

#include "plot_global.h"
#include "plot_log.h"
#include "plot_model.h"
#include "plot_record.h"

#include "foundation/utils_functions.h"

namespace rviz_plugin {

CurveSampler::CurveSampler(PlotRecord& plotRecord, const PlotModel& plotModel) : record(plotRecord), model(plotModel)
{
    sendTimer.setInterval(sendInterval);
    connect(&sendTimer, &QTimer::timeout, this, &CurveSampler::SlotSendPoints);
    connect(&record.GetPlotSubscriber(), &PlotSubscriber::SignalUpdateData, this, &CurveSampler::SlotUpdateCurve);
}

void CurveSampler::SetXField(const QString& field)
{
    xField = field;
    xTopicText = PlotGlobal::GetTopic(field).toStdString();
    xKeyText = field.toStdString();
    xFieldKeyText = PlotGlobal::GetFieldKey(field).toStdString();
    xIsArray = PlotGlobal::IsArray(field);
    xFieldName = PlotGlobal::GetFieldName(field).toStdString();
}

void CurveSampler::SetYField(const QString& field)
{
    yField = field;
    yTopic = PlotGlobal::GetTopic(field);
    yTopicText = yTopic.toStdString();
    yKeyText = field.toStdString();
    yFieldKeyText = PlotGlobal::GetFieldKey(field).toStdString();
    yStampPath = yTopicText + "/header/stamp";
    yIsArray = PlotGlobal::IsArray(field);
    yFieldName = PlotGlobal::GetFieldName(field).toStdString();
}

void CurveSampler::StartUpdateCurve()
{
    if (!sendTimer.isActive()) {
        sendTimer.start();
    }
}

void CurveSampler::StopUpdateCurve()
{
    if (sendTimer.isActive()) {
        sendTimer.stop();
    }
}

void CurveSampler::ResetCurve()
{
    points.resize(0);
    timestamps.resize(0);
}

void CurveSampler::SlotSendPoints()
{
    if (!points.isEmpty()) {
        Q_EMIT SignalUpdateCurve(curveIndex, points, timestamps);
        ResetCurve();
    }
    hasNewPoint = false;
}

void CurveSampler::SlotUpdateCurve(const QString& topic)
{
    // A stopped line (a hidden plot) keeps nothing: with nothing sending, points would pile up.
    if (yField.isEmpty() || topic != yTopic || !sendTimer.isActive()) {
        return;
    }
    const PlotDataHandler& handler = record.GetHandler();
    double t = handler.GetProcessedTime();
    const std::string& stamp = handler.GetPlotData().GetArrayData(yStampPath);
    if (!stamp.empty()) {
        t = Orsa::UtilsFunctions::StringToNumber<double>(stamp, plotLogTag);
    }
    if (t - lastTime < static_cast<double>(-loopTolerance)) {
        SlotSendPoints();
        Q_EMIT SignalLoopBegin(curveIndex);
    }
    double x = 0.0;
    double y = 0.0;
    const bool made = isMsgPath ? GetCurvePointMsgPath(x, y) : GetCurvePointTimestamp(x, t, y);
    if (!made) {
        return;
    }
    hasNewPoint = true;
    timestamps.append(t);
    points.append(QPointF(x, y));
    lastTime = t;
}

bool CurveSampler::GetValue(const std::string& topic, const std::string& key, const std::string& fieldKey,
                            bool isArray, double& value) const
{
    const PlotData& data = record.GetHandler().GetPlotData();
    if (isArray) {
        const std::string& text = data.GetArrayData(key);
        if (text.empty()) {
            return false;
        }
        value = Orsa::UtilsFunctions::StringToNumber<double>(text, plotLogTag);
        return true;
    }
    const auto pairs = data.GetKeyValueData().find(topic);
    if (pairs == data.GetKeyValueData().end()) {
        return false;
    }
    for (const auto& [name, text] : pairs->second) {
        if (name == fieldKey) {
            value = Orsa::UtilsFunctions::StringToNumber<double>(text, plotLogTag);
            return true;
        }
    }
    return false;
}

bool CurveSampler::GetCurvePointTimestamp(double& x, double t, double& y) const
{
    x = t;
    if (!GetValue(yTopicText, yKeyText, yFieldKeyText, yIsArray, y)) {
        // A scalar without its pair still makes a point, at 0.
        return !yIsArray;
    }
    return true;
}

bool CurveSampler::GetCurvePointMsgPath(double& x, double& y) const
{
    if (!model.HasField(xFieldName) || !model.HasField(yFieldName)) {
        return false;
    }
    return GetValue(xTopicText, xKeyText, xFieldKeyText, xIsArray, x) &&
           GetValue(yTopicText, yKeyText, yFieldKeyText, yIsArray, y);
}

} // namespace rviz_plugin
