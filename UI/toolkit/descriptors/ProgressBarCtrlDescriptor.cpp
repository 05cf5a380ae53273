#include "descriptors/ProgressBarCtrlDescriptor.h"

#include "descriptors/AnimatedCtrlDescriptor.h"
#include "xml/XMLLoader.h"

#include <utility>

namespace UIKit {
namespace {

// The image of the first child that names a valid one, else the last tried.
Toolkit::smart_ptr<ImageDescriptor> firstValid(const Toolkit::smart_ptr<XMLNode>& node, const char* preferred,
                                              const char* fallback)
{
    auto image = Toolkit::make_smart<ImageDescriptor>(preferred, node);
    if (!image->IsOk())
        image = Toolkit::make_smart<ImageDescriptor>(fallback, node);
    return image;
}

} // namespace

ProgressBarCtrlDescriptor::ProgressBarCtrlDescriptor(Toolkit::smart_ptr<XMLNode> node) : BaseCtrlDescriptor(node)
{
    XMLLoader loader(node);
    m_animationStrip = firstValid(node, "AnimatedImages", "Images");
    m_frameDelay = loader.ReadInt("FrameDelay", "", -1);
    m_maximum = loader.ReadInt("Maximum", "", 100);
    m_minimum = loader.ReadInt("Minimum", "", 0);
    if (m_minimum > m_maximum) {
        loader.Report("", "the minimum is above the maximum; the two are swapped");
        std::swap(m_minimum, m_maximum);
    }
    m_backgroundImage = Toolkit::make_smart<ImageDescriptor>("BackgroundImage", node);
    m_progressImage = firstValid(node, "ProgressImage", "ForegroundImage");

    const bool animated = m_animationStrip->IsOk();
    if (animated)
        m_frameCount = int(AnimatedCtrlDescriptor::CountFrames(loader, m_animationStrip->GetImage().GetWidth(),
                                                               GetBounds().width));

    const auto style = loader.ReadString("Style", "progressStyle");
    if (style == L"block")
        m_progressStyle = Block;
    else if (style == L"continue")
        m_progressStyle = Continue;
    else if (style == L"animation")
        m_progressStyle = Animation;
    else
        m_progressStyle = animated ? Animation : Continue;
}

} // namespace UIKit
