#pragma once
// Reads typed values from one element of a skin document. A loader made by
// LoadFromFile, LoadFromAppearance or LoadFromBytes owns its tree (parsed
// lazily: children on first access) and frees it when destroyed or loaded
// again; a loader made from an XMLNode borrows that element.
//
// Every reader takes a child path ("Color", "StateImage/ImageActive"; empty
// for the loader's own element) and an attribute name (empty for the
// element's text). A missing child, attribute or value reads as empty text,
// which gives the reader's default. Not thread-safe.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "xml/Padding.h"
#include "xml/XmlTypes.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

#include <cstddef>
#include <vector>

namespace UIKit {

class IResourceProvider;
class XMLNode;

class XMLLoader {
public:
    XMLLoader();
    explicit XMLLoader(Toolkit::smart_ptr<XMLNode> node);
    virtual ~XMLLoader();
    XMLLoader(const XMLLoader&) = delete;
    XMLLoader& operator=(const XMLLoader&) = delete;

    // Each load first drops the tree held so far, so a failed load leaves none.
    // Reads and parses a whole file; false (logged) when it is missing or empty.
    bool LoadFromFile(const TString<char>& path);
    // Parses a description file of the active appearance pack.
    bool LoadFromAppearance(const TString<wchar_t>& name);
    // Parses a document already in memory (up to its first NUL byte).
    bool LoadFromBytes(const char* bytes, size_t length);

    // The loader's own element, null before a load.
    XML_NODE* GetElement() const { return m_element; }
    Toolkit::smart_ptr<XMLNode> GetRootNode() const;

    TString<wchar_t> ReadString(const TString<char>& path, const TString<char>& attribute) const;
    // The text looked up as a key of the string table.
    TString<wchar_t> ReadLabel(const TString<char>& path, const TString<char>& attribute) const;
    // True exactly for "yes".
    bool ReadBool(const TString<char>& path, const TString<char>& attribute, bool defaultValue) const;
    int ReadInt(const TString<char>& path, const TString<char>& attribute, int defaultValue) const;
    // A symbolic control or plug-in id ("ID_OK"), -1 for any other text.
    int ReadId(const TString<char>& path, const TString<char>& attribute) const;
    // "r,g,b,a"; wxNullColour with fewer than four numbers.
    wxColour ReadColor(const TString<char>& path, const TString<char>& attribute) const;
    wxSize ReadSize(const TString<char>& path, const TString<char>& attribute) const;
    wxPoint ReadPoint(const TString<char>& path, const TString<char>& attribute) const;
    // "x,y,width,height".
    wxRect ReadRect(const TString<char>& path, const TString<char>& attribute) const;
    // "left,top,right,bottom"; the shared empty padding when not given.
    Toolkit::smart_ptr<Padding> ReadPadding(const TString<char>& path, const TString<char>& attribute) const;
    // The pack's image named by the text; wxNullImage for empty text.
    wxImage ReadImage(const TString<char>& path, const TString<char>& attribute) const;
    static wxImage LoadSkinImage(const TString<wchar_t>& name);

    // Every child matching the path (every child for an empty path).
    void GetNodes(std::vector<Toolkit::smart_ptr<XMLNode>>& nodes, const TString<char>& path) const;
    // The first child matching the (non-empty) path whose attribute has the
    // value (byte for byte); with an empty attribute name the first child,
    // with an empty value the first child that has the attribute.
    Toolkit::smart_ptr<XMLNode> GetNode(const TString<char>& path, const TString<char>& attribute,
                                        const TString<char>& value) const;

    // The source of descriptor files, images and labels; not owned. Without
    // one, labels read as their key, images as wxNullImage, and
    // LoadFromAppearance fails.
    static void SetResourceProvider(IResourceProvider* provider);
    static IResourceProvider* GetResourceProvider();

private:
    // The raw UTF-8 text that the path and attribute name point at, or null.
    const char* rawText(const TString<char>& path, const TString<char>& attribute) const;
    size_t readList(const TString<char>& path, const TString<char>& attribute, int* values, size_t capacity) const;
    // Parses m_text; problems in it are reported under `name`.
    bool parse(const std::string& name);
    void release();

    // The document's bytes, which the owned tree reads its pending children
    // from; kept while the tree lives.
    std::vector<char> m_text;
    XML_NODE* m_element = nullptr;
    bool m_borrowed = false;
};

} // namespace UIKit
