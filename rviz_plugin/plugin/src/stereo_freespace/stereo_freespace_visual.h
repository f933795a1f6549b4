#ifndef RVIZ_PLUGIN_STEREO_FREESPACE_VISUAL_H
#define RVIZ_PLUGIN_STEREO_FREESPACE_VISUAL_H

#include "scene_3d_logic/stereo_freespace_checker.h"

#ifndef Q_MOC_RUN
#include <rviz/ogre_helpers/point_cloud.h>
#endif

#include <QColor>

#include <array>
#include <memory>
#include <vector>

namespace Ogre {
class SceneNode;
}

namespace rviz_plugin {

// Colours of the three cell classes, in the order of the cells' status: non-freespace, freespace,
// unknown.
struct StereoFreespaceColors {
    std::array<QColor, FreespaceTiles::classCount> colors{QColor(100, 100, 100, 255), QColor(255, 255, 255, 255),
                                                          QColor(0, 0, 0, 255)};
};

// The grid as three flat clouds of tiles, one per class; each tile fills a cell.
class StereoFreespaceVisual {
public:
    StereoFreespaceVisual(const StereoFreespaceColors& colors, StereoFreespaceChecker& checker);
    ~StereoFreespaceVisual();

    void Init(Ogre::SceneNode* sceneNode);
    void SetMessage(const orsa_msgs::StereoFreespace& message);
    // The two halves of SetMessage: the cells checked and laid out as coloured points of the three
    // classes, then the points handed to the clouds (one call each).
    void FillPoints(const orsa_msgs::StereoFreespace& message);
    void DrawCloudPoint();
    void Reset();
    std::size_t PointCount(int cellClass) const { return tiles.counts[static_cast<std::size_t>(cellClass)]; }

private:
    void InitPointCloud();
    void Render(const orsa_msgs::StereoFreespace& message);
    void ResetCloudProperties(const orsa_msgs::StereoFreespace& message);

    const StereoFreespaceColors& colors;
    StereoFreespaceChecker& checker;
    Ogre::SceneNode* sceneNode = nullptr;
    std::array<Ogre::SceneNode*, FreespaceTiles::classCount> cloudNodes{};
    std::array<std::unique_ptr<rviz::PointCloud>, FreespaceTiles::classCount> clouds;
    FreespaceTiles tiles;
    std::array<std::vector<rviz::PointCloud::Point>, FreespaceTiles::classCount> points;
};

} // namespace rviz_plugin

#endif
