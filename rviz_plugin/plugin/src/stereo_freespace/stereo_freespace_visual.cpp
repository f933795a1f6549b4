#include "stereo_freespace_visual.h"

#ifndef Q_MOC_RUN
#include <OgreSceneNode.h>
#endif

namespace rviz_plugin {

StereoFreespaceVisual::StereoFreespaceVisual(const StereoFreespaceColors& classColors, StereoFreespaceChecker& check)
    : colors(classColors), checker(check)
{
}

StereoFreespaceVisual::~StereoFreespaceVisual()
{
    for (std::size_t cellClass = 0; cellClass < clouds.size(); ++cellClass) {
        if (clouds[cellClass] && cloudNodes[cellClass] != nullptr) {
            cloudNodes[cellClass]->detachObject(clouds[cellClass].get());
        }
    }
}

void StereoFreespaceVisual::Init(Ogre::SceneNode* node)
{
    sceneNode = node;
    InitPointCloud();
}

void StereoFreespaceVisual::InitPointCloud()
{
    // A node per cloud: a node takes one unnamed object only.
    for (std::size_t cellClass = 0; cellClass < clouds.size(); ++cellClass) {
        auto& cloud = clouds[cellClass];
        cloud = std::make_unique<rviz::PointCloud>();
        cloud->setRenderMode(rviz::PointCloud::RM_FLAT_SQUARES);
        cloud->setCommonDirection(Ogre::Vector3::UNIT_Z);
        cloud->setCommonUpVector(Ogre::Vector3::UNIT_Y);
        cloud->setDimensions(1.0F, 1.0F, 0.0F);
        cloudNodes[cellClass] = sceneNode->createChildSceneNode();
        cloudNodes[cellClass]->attachObject(cloud.get());
    }
}

void StereoFreespaceVisual::SetMessage(const orsa_msgs::StereoFreespace& message)
{
    Render(message);
}

void StereoFreespaceVisual::ResetCloudProperties(const orsa_msgs::StereoFreespace& message)
{
    for (std::size_t cellClass = 0; cellClass < clouds.size(); ++cellClass) {
        clouds[cellClass]->setAlpha(static_cast<float>(colors.colors[cellClass].alphaF()));
        clouds[cellClass]->setDimensions(static_cast<float>(message.info.xResolution),
                                         static_cast<float>(message.info.yResolution), 0.0F);
    }
}

void StereoFreespaceVisual::Render(const orsa_msgs::StereoFreespace& message)
{
    FillPoints(message);
    DrawCloudPoint();
}

void StereoFreespaceVisual::FillPoints(const orsa_msgs::StereoFreespace& message)
{
    ResetCloudProperties(message);
    LayOutFreespaceCells(message, checker, tiles);
    for (std::size_t cellClass = 0; cellClass < clouds.size(); ++cellClass) {
        const std::size_t count = tiles.counts[cellClass];
        auto& classPoints = points[cellClass];
        if (classPoints.size() < count) {
            classPoints.resize(count);
        }
        const QColor& color = colors.colors[cellClass];
        const Ogre::ColourValue colour(static_cast<float>(color.redF()), static_cast<float>(color.greenF()),
                                       static_cast<float>(color.blueF()), static_cast<float>(color.alphaF()));
        const auto& classTiles = tiles.tiles[cellClass];
        for (std::size_t index = 0; index < count; ++index) {
            classPoints[index].position = Ogre::Vector3(classTiles[index].x, classTiles[index].y, 0.0F);
            classPoints[index].color = colour;
        }
    }
}

void StereoFreespaceVisual::DrawCloudPoint()
{
    for (std::size_t cellClass = 0; cellClass < clouds.size(); ++cellClass) {
        clouds[cellClass]->clear();
        const std::size_t count = tiles.counts[cellClass];
        if (count > 0) {
            clouds[cellClass]->addPoints(points[cellClass].data(), static_cast<uint32_t>(count));
        }
    }
}

void StereoFreespaceVisual::Reset()
{
    for (auto& cloud : clouds) {
        if (cloud) {
            cloud->clear();
        }
    }
}

} // namespace rviz_plugin
