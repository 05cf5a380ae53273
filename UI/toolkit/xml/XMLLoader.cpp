#include "xml/XMLLoader.h"

#include "Toolkit/ILogger.h"
#include "Toolkit/UTF8.h"
#include "factory/ControlIds.h"
#include "xml/ErrorSink.h"
#include "xml/IResourceProvider.h"
#include "xml/XMLNode.h"
#include "xml/XmlDom.h"
#include "xml/XmlNumbers.h"

#include <cstring>
#include <fstream>
#include <iterator>

namespace UIKit {
namespace {

IResourceProvider* s_resourceProvider = nullptr;

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

} // namespace

XMLLoader::XMLLoader() = default;

XMLLoader::XMLLoader(Toolkit::smart_ptr<XMLNode> node)
    : m_element(node ? node->GetElement() : nullptr), m_borrowed(true)
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
    return parse(path);
}

bool XMLLoader::LoadFromAppearance(const TString<wchar_t>& name)
{
    release();
    if (!s_resourceProvider) {
        TK_LOG(Toolkit::LogError) << "No appearance to read the description " << name << " from";
        return false;
    }
    std::vector<unsigned char> bytes;
    if (!s_resourceProvider->ReadDescriptor(name, bytes) || bytes.empty()) {
        TK_LOG(Toolkit::LogError) << "Cannot read the description " << name << " of the appearance";
        return false;
    }
    m_text.assign(bytes.begin(), bytes.end());
    return parse(Toolkit::UTF8::ToUTF8(name));
}

bool XMLLoader::LoadFromBytes(const char* bytes, size_t length)
{
    release();
    m_text.assign(bytes, bytes + length);
    return parse(std::string());
}

bool XMLLoader::parse(const std::string& name)
{
    // The document ends at its first NUL, as a C string would.
    size_t length = m_text.size();
    if (const void* nul = length ? std::memchr(m_text.data(), '\0', length) : nullptr)
        length = static_cast<size_t>(static_cast<const char*>(nul) - m_text.data());
    XML_NODE* element = nullptr;
    uint32_t result = node_create(&element, "root", "uri");
    if (!XML_FAILED(result))
        result = node_set_doc_name(element, name.c_str());
    if (!XML_FAILED(result))
        result = node_set_error_handler(element, &reportMalformed, nullptr);
    if (!XML_FAILED(result))
        result = node_set_doc_borrowed(element, m_text.data(), length, nullptr, true);
    if (XML_FAILED(result)) {
        TK_LOG(Toolkit::LogError) << "Cannot parse an XML document of " << length << " bytes, code " << result;
        node_destroy(element);
        m_text.clear();
        return false;
    }
    m_element = element;
    return true;
}

Toolkit::smart_ptr<XMLNode> XMLLoader::GetRootNode() const
{
    return m_element ? Toolkit::make_smart<XMLNode>(m_element) : Toolkit::smart_ptr<XMLNode>();
}

const char* XMLLoader::rawText(const TString<char>& path, const TString<char>& attribute) const
{
    XML_NODE* element = m_element;
    if (element && !path.empty())
        element = node_find_first(element, path.c_str());
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
    if (!s_resourceProvider)
        return Toolkit::UTF8::ToUNICODE(key);
    return s_resourceProvider->GetAddStr(TString<char>(key));
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

size_t XMLLoader::readList(const TString<char>& path, const TString<char>& attribute, int* values,
                           size_t capacity) const
{
    const char* text = rawText(path, attribute);
    return text ? XmlNumbers::ParseList(text, values, capacity) : 0;
}

wxColour XMLLoader::ReadColor(const TString<char>& path, const TString<char>& attribute) const
{
    int v[4];
    if (readList(path, attribute, v, 4) < 4)
        return wxNullColour;
    // Each component keeps its low 8 bits, so 300 reads as 44.
    return wxColour(static_cast<unsigned char>(v[0]), static_cast<unsigned char>(v[1]),
                    static_cast<unsigned char>(v[2]), static_cast<unsigned char>(v[3]));
}

wxSize XMLLoader::ReadSize(const TString<char>& path, const TString<char>& attribute) const
{
    int v[2];
    return readList(path, attribute, v, 2) < 2 ? wxSize(0, 0) : wxSize(v[0], v[1]);
}

wxPoint XMLLoader::ReadPoint(const TString<char>& path, const TString<char>& attribute) const
{
    int v[2];
    return readList(path, attribute, v, 2) < 2 ? wxPoint(0, 0) : wxPoint(v[0], v[1]);
}

wxRect XMLLoader::ReadRect(const TString<char>& path, const TString<char>& attribute) const
{
    int v[4];
    return readList(path, attribute, v, 4) < 4 ? wxRect(0, 0, 0, 0) : wxRect(v[0], v[1], v[2], v[3]);
}

Toolkit::smart_ptr<Padding> XMLLoader::ReadPadding(const TString<char>& path, const TString<char>& attribute) const
{
    int v[4];
    if (readList(path, attribute, v, 4) < 4)
        return Padding::Empty();
    return Toolkit::make_smart<Padding>(static_cast<int16_t>(v[0]), static_cast<int16_t>(v[1]),
                                        static_cast<int16_t>(v[2]), static_cast<int16_t>(v[3]));
}

wxImage XMLLoader::ReadImage(const TString<char>& path, const TString<char>& attribute) const
{
    const char* name = rawText(path, attribute);
    return isEmpty(name) ? wxNullImage : LoadSkinImage(Toolkit::UTF8::ToUNICODE(name));
}

wxImage XMLLoader::LoadSkinImage(const TString<wchar_t>& name)
{
    return s_resourceProvider ? s_resourceProvider->GetGraphic(name) : wxNullImage;
}

void XMLLoader::GetNodes(std::vector<Toolkit::smart_ptr<XMLNode>>& nodes, const TString<char>& path) const
{
    nodes.clear();
    if (!m_element)
        return;
    const char* match = path.empty() ? nullptr : path.c_str();
    for (XML_NODE* child = node_find_first(m_element, match); child; child = node_find_next(m_element, match, child))
        nodes.push_back(Toolkit::make_smart<XMLNode>(child));
}

Toolkit::smart_ptr<XMLNode> XMLLoader::GetNode(const TString<char>& path, const TString<char>& attribute,
                                               const TString<char>& value) const
{
    if (!m_element || path.empty())
        return {};
    for (XML_NODE* child = node_find_first(m_element, path.c_str()); child;
         child = node_find_next(m_element, path.c_str(), child)) {
        if (attribute.empty())
            return Toolkit::make_smart<XMLNode>(child);
        const char* text = node_attribute(child, attribute.c_str());
        if (text && (value.empty() || value == text))
            return Toolkit::make_smart<XMLNode>(child);
    }
    return {};
}

void XMLLoader::SetResourceProvider(IResourceProvider* provider)
{
    s_resourceProvider = provider;
}

IResourceProvider* XMLLoader::GetResourceProvider()
{
    return s_resourceProvider;
}

} // namespace UIKit
