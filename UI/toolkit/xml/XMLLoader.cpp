#include "xml/XMLLoader.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "xml/ErrorSink.h"
#include "xml/IResourceProvider.h"
#include "xml/SymbolicIds.h"
#include "xml/XmlDom.h"
#include "xml/XmlNumbers.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace UIKit {
namespace {

bool isEmpty(const char* text)
{
    return !text || !*text;
}

// Every problem found in a document's text, now or when its pending
// children are parsed later, goes to the error sink.
void reportMalformed(const XML_ERROR& error, void*)
{
    ErrorSink::Report(error.file ? error.file : "", static_cast<int>(error.line),
                      std::string("malformed XML: ") + error.cause);
}

// Numbers, signs, separators and blanks only: "red" or "1,2,x,4" is not a
// colour, however many items it has.
bool isNumberList(const char* text)
{
    for (; *text; ++text)
        if (!std::strchr("0123456789+-,; \t\r\n", *text))
            return false;
    return true;
}

std::string narrow(const TString<wchar_t>& text)
{
    return Toolkit::UTF8::ToUTF8(text);
}

} // namespace

XMLLoader::XMLLoader() : m_origin(Toolkit::make_smart<DocumentOrigin>())
{
}

XMLLoader::XMLLoader(Toolkit::smart_ptr<XMLNode> node)
    : m_element(node ? node->GetElement() : nullptr),
      m_borrowed(true),
      m_origin(node && node->GetOrigin() ? node->GetOrigin() : Toolkit::make_smart<DocumentOrigin>())
{
}

XMLLoader::~XMLLoader()
{
    release();
}

void XMLLoader::release()
{
    if (m_element && !m_borrowed)
        node_destroy(m_element);
    m_element = nullptr;
    m_borrowed = false;
    m_text.clear();
}

bool XMLLoader::LoadFromFile(const TString<char>& path)
{
    release();
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        TK_LOG(Toolkit::LogError) << "Cannot open the XML file " << path;
        return false;
    }
    m_text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    if (file.bad()) {
        TK_LOG(Toolkit::LogError) << "Cannot read the XML file " << path;
        return false;
    }
    if (m_text.empty()) {
        TK_LOG(Toolkit::LogError) << "The XML file is empty: " << path;
        return false;
    }
    if (m_origin->file.empty())
        m_origin->file = path;
    return parse();
}

bool XMLLoader::LoadFromAppearance(const TString<wchar_t>& name)
{
    release();
    IResourceProvider* resources = m_origin->resources;
    if (!resources) {
        TK_LOG(Toolkit::LogError) << "No appearance to read the description " << name << " from";
        return false;
    }
    m_origin->file = narrow(name) + ".xml";
    std::vector<unsigned char> bytes;
    if (!resources->ReadDescriptor(name, bytes) || bytes.empty()) {
        ErrorSink::Report(m_origin->file, 0, "the description cannot be read from the appearance pack");
        return false;
    }
    m_text.assign(bytes.begin(), bytes.end());
    return parse();
}

bool XMLLoader::LoadFromBytes(const char* bytes, size_t length)
{
    release();
    m_text.assign(bytes, bytes + length);
    return parse();
}

bool XMLLoader::parse()
{
    // The document ends at its first NUL, as a C string would.
    size_t length = m_text.size();
    if (const void* nul = length ? std::memchr(m_text.data(), '\0', length) : nullptr)
        length = static_cast<size_t>(static_cast<const char*>(nul) - m_text.data());
    XML_NODE* element = nullptr;
    uint32_t result = node_create(&element, "root", "uri");
    if (!XML_FAILED(result))
        result = node_set_doc_name(element, m_origin->file.c_str());
    if (!XML_FAILED(result))
        result = node_set_error_handler(element, &reportMalformed, nullptr);
    if (!XML_FAILED(result))
        result = node_set_doc_borrowed(element, m_text.data(), length, nullptr, true);
    if (XML_FAILED(result)) {
        ErrorSink::Report(m_origin->file, 0,
                          "malformed XML: the document cannot be parsed (code " + std::to_string(result) + ")");
        node_destroy(element);
        m_text.clear();
        return false;
    }
    m_element = element;
    return true;
}

void XMLLoader::SetFileName(const std::string& file)
{
    m_origin->file = file;
    // Problems still to be found in pending children are told under it too.
    if (m_element && !m_borrowed)
        node_set_doc_name(m_element, file.c_str());
}

Toolkit::smart_ptr<XMLNode> XMLLoader::GetRootNode() const
{
    return m_element ? Toolkit::make_smart<XMLNode>(m_element, m_origin) : Toolkit::smart_ptr<XMLNode>();
}

XML_NODE* XMLLoader::elementAt(const TString<char>& path) const
{
    return (m_element && !path.empty()) ? node_find_first(m_element, path.c_str()) : m_element;
}

void XMLLoader::Report(const TString<char>& path, const std::string& message) const
{
    XML_NODE* element = elementAt(path);
    ErrorSink::Report(m_origin->file, m_origin->LineOf(element ? element : m_element), message);
}

const char* XMLLoader::rawText(const TString<char>& path, const TString<char>& attribute) const
{
    XML_NODE* element = elementAt(path);
    if (!element)
        return nullptr;
    return attribute.empty() ? node_value(element) : node_attribute(element, attribute.c_str());
}

TString<wchar_t> XMLLoader::ReadString(const TString<char>& path, const TString<char>& attribute) const
{
    const char* text = rawText(path, attribute);
    return text ? Toolkit::UTF8::ToUNICODE(text) : TString<wchar_t>();
}

TString<wchar_t> XMLLoader::ReadLabel(const TString<char>& path, const TString<char>& attribute) const
{
    const char* key = rawText(path, attribute);
    if (isEmpty(key))
        return {};
    IResourceProvider* resources = m_origin->resources;
    if (!resources)
        return Toolkit::UTF8::ToUNICODE(key);
    const TString<char> name(key);
    if (!resources->IsStrExist(name))
        Report(path, "undefined string key '" + std::string(name) + "'");
    return resources->GetAddStr(name);
}

bool XMLLoader::ReadBool(const TString<char>& path, const TString<char>& attribute, bool defaultValue) const
{
    const char* text = rawText(path, attribute);
    return isEmpty(text) ? defaultValue : std::strcmp(text, "yes") == 0;
}

int XMLLoader::ReadInt(const TString<char>& path, const TString<char>& attribute, int defaultValue) const
{
    const char* text = rawText(path, attribute);
    return isEmpty(text) ? defaultValue : XmlNumbers::ParseInt(text);
}

int XMLLoader::ReadId(const TString<char>& path, const TString<char>& attribute) const
{
    const char* text = rawText(path, attribute);
    return isEmpty(text) ? -1 : LookupSymbolicId(text);
}

bool XMLLoader::readList(const TString<char>& path, const TString<char>& attribute, int* values,
                         size_t count) const
{
    const char* text = rawText(path, attribute);
    if (isEmpty(text))
        return false;
    // Words still read as 0, as they always have; they are reported all the same.
    const bool enough = XmlNumbers::ParseList(text, values, count) >= count;
    if (!enough || !isNumberList(text))
        Report(path, "bad value '" + std::string(text) + "' of attribute '" + std::string(attribute) + "': " +
                         std::to_string(count) + " numbers expected");
    return enough;
}

wxColour XMLLoader::ReadColor(const TString<char>& path, const TString<char>& attribute) const
{
    int v[4];
    if (!readList(path, attribute, v, 4))
        return wxNullColour;
    // Each component keeps its low 8 bits, so 300 reads as 44.
    return wxColour(static_cast<unsigned char>(v[0]), static_cast<unsigned char>(v[1]),
                    static_cast<unsigned char>(v[2]), static_cast<unsigned char>(v[3]));
}

wxSize XMLLoader::ReadSize(const TString<char>& path, const TString<char>& attribute) const
{
    int v[2];
    return readList(path, attribute, v, 2) ? wxSize(v[0], v[1]) : wxSize(0, 0);
}

wxPoint XMLLoader::ReadPoint(const TString<char>& path, const TString<char>& attribute) const
{
    int v[2];
    return readList(path, attribute, v, 2) ? wxPoint(v[0], v[1]) : wxPoint(0, 0);
}

wxRect XMLLoader::ReadRect(const TString<char>& path, const TString<char>& attribute) const
{
    int v[4];
    return readList(path, attribute, v, 4) ? wxRect(v[0], v[1], v[2], v[3]) : wxRect(0, 0, 0, 0);
}

Toolkit::smart_ptr<Padding> XMLLoader::ReadPadding(const TString<char>& path, const TString<char>& attribute) const
{
    int v[4];
    if (!readList(path, attribute, v, 4))
        return Padding::Empty();
    return Toolkit::make_smart<Padding>(static_cast<int16_t>(v[0]), static_cast<int16_t>(v[1]),
                                        static_cast<int16_t>(v[2]), static_cast<int16_t>(v[3]));
}

wxImage XMLLoader::ReadImage(const TString<char>& path, const TString<char>& attribute) const
{
    const char* name = rawText(path, attribute);
    if (isEmpty(name) || !m_origin->resources)
        return wxNullImage;
    wxImage image;
    if (!m_origin->resources->ReadGraphic(Toolkit::UTF8::ToUNICODE(name), image))
        Report(path, "missing image '" + std::string(name) + "'");
    return image;
}

wxImage XMLLoader::LoadSkinImage(const TString<wchar_t>& name) const
{
    wxImage image;
    if (!m_origin->resources)
        return wxNullImage;
    if (!m_origin->resources->ReadGraphic(name, image))
        Report("", "missing image '" + narrow(name) + "'");
    return image;
}

void XMLLoader::GetNodes(std::vector<Toolkit::smart_ptr<XMLNode>>& nodes, const TString<char>& path) const
{
    nodes.clear();
    if (!m_element)
        return;
    const char* match = path.empty() ? nullptr : path.c_str();
    for (XML_NODE* child = node_find_first(m_element, match); child; child = node_find_next(m_element, match, child))
        nodes.push_back(Toolkit::make_smart<XMLNode>(child, m_origin));
}

Toolkit::smart_ptr<XMLNode> XMLLoader::GetNode(const TString<char>& path, const TString<char>& attribute,
                                               const TString<char>& value) const
{
    if (!m_element || path.empty())
        return {};
    for (XML_NODE* child = node_find_first(m_element, path.c_str()); child;
         child = node_find_next(m_element, path.c_str(), child)) {
        if (attribute.empty())
            return Toolkit::make_smart<XMLNode>(child, m_origin);
        const char* text = node_attribute(child, attribute.c_str());
        if (text && (value.empty() || value == text))
            return Toolkit::make_smart<XMLNode>(child, m_origin);
    }
    return {};
}

} // namespace UIKit
