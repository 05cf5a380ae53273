// The XML reader against pugixml on generated skin documents of 100 KB,
// 1 MB and 10 MB, in the same run:
//  - FullWalk: parse, then visit every element, attribute and text;
//  - FindScreen: parse, find one screen near the end of the 10 MB document
//    by its name and read its attributes (our reader keeps children lazy);
//  - ReadId: one XMLLoader::ReadId of a symbolic id.
// Every parse starts from the same bytes. Ours only reads them (the loader
// lends its buffer to the tree); pugixml changes its input, so each of its
// iterations first copies the bytes into a preallocated buffer, which it
// then parses in place (its fastest way).
#include "xml/XMLLoader.h"
#include "xml/XmlDom.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cstring>
#include <map>
#include <string>
#include <vector>

using namespace UIKit;

namespace {

void appendButton(std::string& out, int screen, int button)
{
    out += "        <Control class=\"UIKit::ButtonCtrl\" name=\"Button" + std::to_string(button) +
           "\" id=\"ID_OK\" bounds=\"" + std::to_string(10 + button * 90) +
           ",250,80,24\" visible=\"yes\" tab=\"yes\">\n"
           "          <Color back=\"10,20,30,255\" fore=\"255,255,255,255\" foreSelected=\"0;0;0;255\"/>\n"
           "          <Font name=\"Sans\" ptsize=\"10\" weight=\"BOLD\" fore=\"1,2,3,255\"/>\n"
           "          <Label placement=\"CENTER\">IDS_BUTTON_" + std::to_string(screen) + " &amp; &lt;more&gt;</Label>\n"
           "          <Enabled margin=\"4,4,4,4\">button_normal.png</Enabled>\n"
           "          <Over margin=\"4,4,4,4\">button_over.png</Over>\n"
           "          <Pressed>button_pressed.png</Pressed>\n"
           "        </Control>\n";
}

void appendScreen(std::string& out, int screen)
{
    out += "  <Control class=\"UIKit::ScreenCtrl\" name=\"Screen" + std::to_string(screen) +
           "\" id=\"ID_HOME\" bounds=\"0,0,640,480\" min_size=\"320,240\" visible=\"yes\">\n"
           "    <Color back=\"200,200,200,255\" fore=\"0,0,0,255\"/>\n"
           "    <Style parent_position=\"TopLeft\"/>\n"
           "    <Label placement=\"MiddleLeft\">IDS_SCREEN_TITLE &quot;" + std::to_string(screen) + "&quot;</Label>\n"
           "    <BackgroundImage margin=\"8,8,8,8\">background.png</BackgroundImage>\n";
    for (int panel = 0; panel < 3; ++panel) {
        out += "    <Control class=\"UIKit::PanelCtrl\" name=\"Panel" + std::to_string(panel) +
               "\" id=\"ID_CTRLPLACEHOLDER\" bounds=\"0," + std::to_string(panel * 100) + ",640,100\">\n"
               "      <Color back=\"240,240,240,255\"/>\n"
               "      <!-- the buttons of this panel -->\n";
        for (int button = 0; button < 3; ++button)
            appendButton(out, screen, button);
        out += "    </Control>\n";
    }
    out += "  </Control>\n";
}

struct SkinDocument {
    std::string text;
    int screens = 0;
    std::string target; // the name of a screen near the end
};

// A skin of at least `bytes` bytes: screens of nested panels and buttons.
const SkinDocument& skin(size_t bytes)
{
    static std::map<size_t, SkinDocument> made;
    SkinDocument& doc = made[bytes];
    if (!doc.text.empty())
        return doc;
    doc.text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!-- generated skin -->\n<Skin version=\"1\">\n";
    while (doc.text.size() < bytes)
        appendScreen(doc.text, doc.screens++);
    doc.text += "</Skin>\n";
    doc.target = "Screen" + std::to_string(doc.screens - 2);
    return doc;
}

size_t walkOurs(XML_NODE* top)
{
    size_t sum = 0;
    std::vector<XML_NODE*> stack{top};
    while (!stack.empty()) {
        XML_NODE* element = stack.back();
        stack.pop_back();
        sum += std::strlen(node_name(element));
        if (const char* value = node_value(element))
            sum += std::strlen(value);
        for (uint32_t i = 0; i < element->attributes.count; ++i) {
            const XML_TAG& attribute = element->attributes.items[i];
            sum += std::strlen(attribute.name) + attribute.valueLength;
        }
        for (XML_NODE* child = node_find_first(element, nullptr); child; child = node_find_next(element, nullptr, child))
            stack.push_back(child);
    }
    return sum;
}

size_t walkPugi(const pugi::xml_node& top)
{
    size_t sum = 0;
    std::vector<pugi::xml_node> stack{top};
    while (!stack.empty()) {
        const pugi::xml_node element = stack.back();
        stack.pop_back();
        sum += std::strlen(element.name()) + std::strlen(element.child_value());
        for (const pugi::xml_attribute& attribute : element.attributes())
            sum += std::strlen(attribute.name()) + std::strlen(attribute.value());
        for (pugi::xml_node child = element.first_child(); child; child = child.next_sibling())
            if (child.type() == pugi::node_element)
                stack.push_back(child);
    }
    return sum;
}

// One top element reused by every iteration, as a warm reader would be.
class OurDocument {
public:
    OurDocument() { node_create(&m_top, "root", "uri"); }
    ~OurDocument() { node_destroy(m_top); }
    XML_NODE* Parse(const std::string& text, bool lazy)
    {
        node_set_doc_borrowed(m_top, text.data(), text.size(), nullptr, lazy);
        return m_top;
    }

private:
    XML_NODE* m_top = nullptr;
};

// A preallocated buffer and a reused document for pugixml's in-place parse.
class PugiDocument {
public:
    explicit PugiDocument(size_t bytes) : m_buffer(bytes) {}
    pugi::xml_node Parse(const std::string& text)
    {
        std::memcpy(m_buffer.data(), text.data(), text.size());
        m_document.load_buffer_inplace(m_buffer.data(), text.size(), pugi::parse_default);
        return m_document.document_element();
    }

private:
    std::vector<char> m_buffer;
    pugi::xml_document m_document;
};

void setCounters(benchmark::State& state, size_t bytes)
{
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes));
    state.SetLabel(std::to_string(bytes / 1024) + " KB");
}

void BM_FullWalk_Ours(benchmark::State& state)
{
    const auto& doc = skin(static_cast<size_t>(state.range(0)));
    OurDocument ours;
    for (auto _ : state)
        benchmark::DoNotOptimize(walkOurs(ours.Parse(doc.text, false)));
    setCounters(state, doc.text.size());
}

void BM_FullWalk_OursLazy(benchmark::State& state)
{
    const auto& doc = skin(static_cast<size_t>(state.range(0)));
    OurDocument ours;
    for (auto _ : state)
        benchmark::DoNotOptimize(walkOurs(ours.Parse(doc.text, true)));
    setCounters(state, doc.text.size());
}

void BM_FullWalk_Pugixml(benchmark::State& state)
{
    const auto& doc = skin(static_cast<size_t>(state.range(0)));
    PugiDocument pugi(doc.text.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(walkPugi(pugi.Parse(doc.text)));
    setCounters(state, doc.text.size());
}

void BM_FindScreen_Ours(benchmark::State& state)
{
    const auto& doc = skin(static_cast<size_t>(state.range(0)));
    OurDocument ours;
    size_t found = 0;
    for (auto _ : state) {
        XML_NODE* top = ours.Parse(doc.text, true);
        XML_NODE* screen = node_find_first(top, "Control");
        while (screen && doc.target != node_attribute(screen, "name"))
            screen = node_find_next(top, "Control", screen);
        if (!screen)
            state.SkipWithError("screen not found");
        for (const char* name : {"class", "name", "id", "bounds", "min_size", "visible"})
            found += std::strlen(node_attribute(screen, name));
        benchmark::DoNotOptimize(found);
    }
    setCounters(state, doc.text.size());
}

void BM_FindScreen_Pugixml(benchmark::State& state)
{
    const auto& doc = skin(static_cast<size_t>(state.range(0)));
    PugiDocument pugi(doc.text.size());
    size_t found = 0;
    for (auto _ : state) {
        const pugi::xml_node screen = pugi.Parse(doc.text).find_child_by_attribute("Control", "name", doc.target.c_str());
        if (!screen)
            state.SkipWithError("screen not found");
        for (const char* name : {"class", "name", "id", "bounds", "min_size", "visible"})
            found += std::strlen(screen.attribute(name).value());
        benchmark::DoNotOptimize(found);
    }
    setCounters(state, doc.text.size());
}

void BM_ReadId(benchmark::State& state)
{
    const std::string text = R"(<Control class="UIKit::ButtonCtrl" name="Never" id="ID_CHECKBOXNEVER" bounds="0,0,1,1"/>)";
    XMLLoader loader;
    loader.LoadFromBytes(text.data(), text.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(loader.ReadId("", "id"));
}

void BM_ReadId_ChildPath(benchmark::State& state)
{
    const std::string text = R"(<Event state="Idle"><Color back="1,2,3,4"/><Target id="PIdBrimbleworthBasicStrategy"/></Event>)";
    XMLLoader loader;
    loader.LoadFromBytes(text.data(), text.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(loader.ReadId("Target", "id"));
}

constexpr int64_t kSizes[] = {100 << 10, 1 << 20, 10 << 20};

} // namespace

BENCHMARK(BM_FullWalk_Ours)->Arg(kSizes[0])->Arg(kSizes[1])->Arg(kSizes[2])->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FullWalk_OursLazy)->Arg(kSizes[0])->Arg(kSizes[1])->Arg(kSizes[2])->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FullWalk_Pugixml)->Arg(kSizes[0])->Arg(kSizes[1])->Arg(kSizes[2])->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FindScreen_Ours)->Arg(kSizes[2])->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FindScreen_Pugixml)->Arg(kSizes[2])->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ReadId);
BENCHMARK(BM_ReadId_ChildPath);
