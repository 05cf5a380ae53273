#pragma once
// Shared by the control tests: a pack in memory whose images are solid
// colours (so a rendering tells which image was drawn), and a shown frame to
// hold the controls.
#include "../descriptors/DescriptorTestSupport.h"

#include "TestSupport.h"

#include "controls/StandardControls.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>
#include <wx/frame.h>

#include <cstring>
#include <string>

namespace controltest {

struct Swatch { const char* file; wxColour colour; };

// The pack's images, 8 x 8 each.
inline const Swatch c_swatches[] = {
    {"red.png", wxColour(255, 0, 0)},    {"green.png", wxColour(0, 255, 0)},  {"blue.png", wxColour(0, 0, 255)},
    {"yellow.png", wxColour(255, 255, 0)}, {"cyan.png", wxColour(0, 255, 255)}, {"grey.png", wxColour(128, 128, 128)},
};

inline wxColour PixelAt(const wxImage& image, int x, int y)
{
    return wxColour(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
}

// The file name of the swatch with that colour, or "none".
inline std::string SwatchAt(const wxImage& image, int x, int y)
{
    for (const auto& s : c_swatches)
        if (s.colour == PixelAt(image, x, y))
            return s.file;
    return "none";
}

// Sends a mouse event of the type to the window, as coming from it.
inline void Mouse(wxWindow* window, wxEventType type)
{
    wxMouseEvent event(type);
    event.SetEventObject(window);
    window->GetEventHandler()->ProcessEvent(event);
}

// Renders with the function into a bitmap of the size, white beforehand.
template <class Draw>
wxImage Render(const wxSize& size, Draw draw)
{
    wxBitmap bitmap(size);
    {
        wxMemoryDC dc(bitmap);
        dc.SetBackground(*wxWHITE_BRUSH);
        dc.Clear();
        draw(dc);
    }
    return bitmap.ConvertToImage();
}

class SkinnedTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const auto& s : c_swatches) {
            wxImage image(8, 8);
            image.SetRGB(wxRect(0, 0, 8, 8), s.colour.Red(), s.colour.Green(), s.colour.Blue());
            m_resources.images[std::wstring(s.file, s.file + std::strlen(s.file))] = image;
        }
        m_resources.strings["LB_OK"] = L"OK";
        // The label keys the control tests write, so that they read as defined.
        for (const char* key : {"OK", "Hi", "Go"})
            m_resources.strings[key] = TString<wchar_t>(std::wstring(key, key + std::strlen(key)));
        m_frame = new wxFrame(nullptr, wxID_ANY, "controls", wxPoint(0, 0), wxSize(300, 200));
        m_frame->Show();
    }
    void TearDown() override { delete m_frame; }

    // A descriptor of class D parsed from the text; the parsed tree lives as
    // long as the fixture.
    template <class D>
    Toolkit::smart_ptr<D> Describe(const std::string& xml)
    {
        m_documents.push_back(std::make_unique<descriptortest::Document>(xml, &m_resources));
        return m_documents.back()->Make<D>();
    }
    // Loads the control as the factory would: with the pack's resources.
    template <class C, class D>
    bool Load(C* control, const Toolkit::smart_ptr<D>& descriptor)
    {
        control->SetResources(&m_resources);
        return control->LoadDescriptor(descriptor);
    }

    // A control of class C on the parent (the frame by default) built as the
    // factory would: its bounds from the description, the pack's resources.
    template <class C, class D>
    C* Build(const std::string& xml, wxWindow* parent = nullptr, int id = wxID_ANY)
    {
        const auto descriptor = Describe<D>(xml);
        auto* control = new C(parent ? parent : m_frame, id, descriptor->GetBounds());
        Load(control, descriptor);
        return control;
    }

    descriptortest::FakeResources m_resources;
    wxFrame* m_frame = nullptr;
    std::vector<std::unique_ptr<descriptortest::Document>> m_documents;
};

// Builds its controls with a fresh factory and template registry holding
// the standard controls and the pack's resources.
class FactoryTest : public SkinnedTest {
protected:
    void SetUp() override
    {
        SkinnedTest::SetUp();
        UIKit::RegisterStandardControls(Factory());
        Factory().SetResources(&m_resources);
    }
    static UIKit::CtrlFactory& Factory() { return *UIKit::CtrlFactory::Instance(); }
    Toolkit::smart_ptr<UIKit::BaseCtrlDescriptor> Parse(const std::string& xml)
    {
        m_documents.push_back(std::make_unique<descriptortest::Document>(xml, &m_resources));
        return Factory().CreateDescriptor(m_documents.back()->Root());
    }

    descriptortest::FreshFactory m_factory;
};

} // namespace controltest
