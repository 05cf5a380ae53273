#include "../descriptors/DescriptorTestSupport.h"
#include "TestDashboard.h"

#include "TestSupport.h"
#include "controls/ButtonCtrl.h"
#include "descriptors/FrameCtrlDescriptor.h"
#include "factory/ControlIds.h"
#include "frames/FrameCtrl.h"

#include <gtest/gtest.h>

#include <gtk/gtk.h>

#include <map>
#include <thread>

using namespace UIKit;

namespace {

// White, with magenta squares of `corner` pixels in the four corners.
wxImage cornered(int width, int height, int corner)
{
    wxImage image(width, height);
    image.SetRGB(wxRect(0, 0, width, height), 255, 255, 255);
    for (const wxPoint at : {wxPoint(0, 0), wxPoint(width - corner, 0), wxPoint(0, height - corner),
                             wxPoint(width - corner, height - corner)})
        image.SetRGB(wxRect(at, wxSize(corner, corner)), 255, 0, 255);
    return image;
}

// Records the shapes given to the window and the title-button actions.
class TestFrame : public FrameCtrl {
public:
    explicit TestFrame(const wxSize& size) : FrameCtrl(nullptr, L"frame", wxID_ANY, wxRect(wxPoint(100, 100), size),
                    wxCAPTION | wxSIMPLE_BORDER | wxFRAME_SHAPED)
    {
    }
    void Iconize(bool iconize) override { iconized.push_back(iconize); }

    wxRegion shape;
    std::vector<bool> iconized;

protected:
    bool DoSetRegionShape(const wxRegion& region) override
    {
        shape = region;
        return FrameCtrl::DoSetRegionShape(region);
    }
};

class FrameCtrlTest : public testing::Test {
protected:
    TestFrame* Frame(const std::string& attributes, const wxSize& size = wxSize(40, 30))
    {
        m_images.images[L"back.png"] = cornered(size.x, size.y, 3);
        m_document = std::make_unique<descriptortest::Document>(
            "<Control class=\"FrameCtrl\" bounds=\"0,0," + std::to_string(size.x) + "," + std::to_string(size.y) +
                "\" " + attributes + "><BackgroundImage>back.png</BackgroundImage></Control>",
            &m_images);
        m_frame = new TestFrame(size);
        m_frame->LoadDescriptor(m_document->Make<FrameCtrlDescriptor>());
        return m_frame;
    }
    void TearDown() override { delete m_frame; }

    descriptortest::FakeResources m_images;
    std::unique_ptr<descriptortest::Document> m_document;
    TestFrame* m_frame = nullptr;
};

TEST_F(FrameCtrlTest, MagentaOfTheBackgroundIsCutFromTheWindowShape)
{
    TestFrame* frame = Frame("");
    // For each point, 1 when the window shape holds it.
    const auto inside = [frame](std::initializer_list<wxPoint> points) {
        std::string out;
        for (const wxPoint& p : points)
            out += frame->shape.Contains(p) == wxInRegion ? '1' : '0';
        return out;
    };
    // Each corner square is cut, its neighbours kept; nothing outside the window.
    EXPECT_EQ(inside({{2, 2}, {3, 0}, {0, 3}, {37, 2}, {36, 2}, {0, 29}, {39, 29}, {40, 15}}), "01101000");
    // After a resize the outline follows the stretched background.
    frame->SetClientSize(80, 60);
    ASSERT_TRUE(frame->CreateShape());
    EXPECT_EQ(inside({{5, 5}, {6, 0}, {74, 54}, {73, 53}}), "0101");
}

TEST_F(FrameCtrlTest, OnlyAMovableFrameFollowsADragFromItselfOrAChild)
{
    // A label forwards its mouse events with its own coordinates: the frame
    // must move by the pointer's travel, not jump by the label's offset.
    for (const bool movable : {false, true})
        for (const bool fromChild : {false, true}) {
            TestFrame* frame = Frame(movable ? "" : "movable=\"false\"");
            auto* label = new wxWindow(frame, wxID_ANY, wxPoint(12, 7), wxSize(10, 10));
            frame->Show();
            const wxPoint before = frame->GetPosition();
            const auto send = [&](wxEventType type, int x, int y) {
                wxMouseEvent event(type);
                event.SetPosition(wxPoint(x, y));
                event.SetLeftDown(type != wxEVT_LEFT_UP);
                event.SetEventObject(fromChild ? label : static_cast<wxWindow*>(frame));
                frame->GetEventHandler()->ProcessEvent(event);
            };
            send(wxEVT_LEFT_DOWN, 2, 2);
            EXPECT_EQ(frame->HasCapture(), movable);
            send(wxEVT_MOTION, 22, 17);
            EXPECT_EQ(frame->GetPosition(), movable ? before + wxPoint(20, 15) : before)
                << "movable " << movable << ", from child " << fromChild;
            send(wxEVT_LEFT_UP, 22, 17);
            EXPECT_FALSE(frame->HasCapture());
            delete m_frame;
            m_frame = nullptr;
        }
}

TEST_F(FrameCtrlTest, SizeLimitsOnlyWhenDescribed)
{
    TestFrame* plain = Frame("");
    EXPECT_TRUE(plain->GetMinSize() == wxDefaultSize && plain->GetMaxSize() == wxDefaultSize)
        << "an absent min_size reads as 0,0 and sets no limit";
    delete m_frame;
    TestFrame* limited = Frame("min_size=\"20,10\" max_size=\"400,300\"");
    EXPECT_EQ(limited->GetMinSize(), wxSize(20, 10));
    EXPECT_EQ(limited->GetMaxSize(), wxSize(400, 300));
}

TEST(SkinFrameTest, WindowManagerMayResizeOnlyAFrameWithAResizeBorder)
{
    const struct { long style; int functions; } cases[] = {
        {0, GDK_FUNC_MOVE},
        {wxRESIZE_BORDER, GDK_FUNC_MOVE | GDK_FUNC_RESIZE},
        {wxMAXIMIZE_BOX | wxRESIZE_BORDER, GDK_FUNC_MOVE | GDK_FUNC_MAXIMIZE | GDK_FUNC_RESIZE},
    };
    for (const auto& c : cases)
        EXPECT_EQ(wxSkinFrameBase::WindowManagerFunctions(c.style), c.functions) << c.style;
}

TEST_F(FrameCtrlTest, TitleButtonsMinimiseAndAskToClose)
{
    TestFrame* frame = Frame("");
    const auto click = [&](int id) {
        auto* button = new ButtonCtrl(frame, id, wxRect(0, 0, 10, 10));
        wxCommandEvent apply;
        button->OnApplyControl(apply);
        button->Destroy();
    };
    // Without a window manager iconizing has no visible effect under Xvfb;
    // what is checked is that the button asks the frame for it.
    click(ID_FRAME_MINIMIZE);
    EXPECT_EQ(frame->iconized, std::vector<bool>{true});

    std::vector<bool> closes;
    frame->Bind(wxEVT_CLOSE_WINDOW, [&](wxCloseEvent& event) {
        closes.push_back(event.CanVeto());
        event.Veto();
    });
    click(ID_FRAME_CLOSE);
    EXPECT_EQ(closes, std::vector<bool>{true}) << "a close request that may be vetoed";
    EXPECT_FALSE(frame->IsBeingDeleted()) << "the veto keeps the frame";
}

TEST_F(FrameCtrlTest, OnlyTheMainThreadChangesTheCursor)
{
    TestFrame* frame = Frame("");
    frame->Show();
    const auto cursorType = [&] {
        GdkCursor* cursor = gdk_window_get_cursor(gtk_widget_get_window(frame->GetHandle()));
        return cursor ? int(gdk_cursor_get_cursor_type(cursor)) : -1;
    };
    ASSERT_EQ(cursorType(), -1);
    std::thread([] { FrameCtrl::SetWaitCursor(); }).join();
    EXPECT_EQ(cursorType(), -1) << "a worker thread changes nothing";
    FrameCtrl::SetWaitCursor();
    EXPECT_EQ(cursorType(), int(GDK_WATCH));
    FrameCtrl::RestorePreviousCursor();
    EXPECT_EQ(cursorType(), -1);
}

TEST(DashboardTest, WaitAndDispatchReportsClosing)
{
    frametest::TestDashboard dashboard;
    EXPECT_FALSE(dashboard.WaitAndDispatch()) << "not waiting, not closing";

    dashboard.GetClosingEvent()->Set();
    EXPECT_TRUE(dashboard.WaitAndDispatch()) << "not waiting, closing";

    // Closing while a caller waits ends the wait and is reported.
    dashboard.GetWaitingEvent()->Set();
    dashboard.GetClosingEvent()->Set();
    EXPECT_TRUE(dashboard.WaitAndDispatch());
}

} // namespace
