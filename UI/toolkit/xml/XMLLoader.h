#pragma once
#include "module/Export.h"
// Reads typed values from one element of a skin document. A loader made by
// LoadFromFile, LoadFromAppearance or LoadFromBytes owns its tree (parsed
// lazily: children on first access) and frees it when destroyed or loaded
// again; a loader made from an XMLNode borrows that element.
//
// Every reader takes a child path ("Color", "StateImage/ImageActive"; empty
// for the loader's own element) and an attribute name (empty for the
// element's text). A missing child, attribute or value reads as empty text,
// which gives the reader's default. A value that is there but cannot be
// read, an image the pack lacks and a string key the table lacks are
// reported to the ErrorSink with the document's file name and the element's
// line. Not thread-safe.
#include "Toolkit/TString.h"
#include "Toolkit/smart_ptr.h"
#include "xml/Padding.h"
#include "xml/XMLNode.h"
#include "xml/XmlTypes.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

#include <cstddef>
#include <string>
#include <vector>

namespace UIKit {

class IResourceProvider;

class UIKIT_API XMLLoader {
public:
    XMLLoader();
    // Borrows the node's element and reads through the node's origin.
    explicit XMLLoader(Toolkit::smart_ptr<XMLNode> node);
    virtual ~XMLLoader();
    XMLLoader(const XMLLoader&) = delete;
    XMLLoader& operator=(const XMLLoader&) = delete;

    // Each load first drops the tree held so far, so a failed load leaves none.
    // Reads and parses a whole file; false (logged) when it is missing or empty.
    bool LoadFromFile(const TString<char>& path);
    // Parses the description file `name` of the loader's resources, and
    // names the document "<name>.xml" in reports.
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
    // The image of that name from the loader's resources (reported when
    // they lack it); wxNullImage without resources.
    wxImage LoadSkinImage(const TString<wchar_t>& name) const;

    // Every child matching the path (every child for an empty path).
    void GetNodes(std::vector<Toolkit::smart_ptr<XMLNode>>& nodes, const TString<char>& path) const;
    // The first child matching the (non-empty) path whose attribute has the
    // value (byte for byte); with an empty attribute name the first child,
    // with an empty value the first child that has the attribute.
    Toolkit::smart_ptr<XMLNode> GetNode(const TString<char>& path, const TString<char>& attribute,
                                        const TString<char>& value) const;

    // The source of description files, images and labels, shared with the
    // nodes made from this loader; not owned. Without one, labels read as
    // their key, images as wxNullImage, and LoadFromAppearance fails.
    void SetResources(IResourceProvider* resources) { m_origin->resources = resources; }
    IResourceProvider* GetResources() const { return m_origin->resources; }
    // The name problems of this document are reported under.
    void SetFileName(const std::string& file);
    const std::string& GetFileName() const { return m_origin->file; }
    const Toolkit::smart_ptr<DocumentOrigin>& GetOrigin() const { return m_origin; }

    // Reports a problem of the element at the path (the loader's own element
    // for an empty path) as "file:line: message".
    void Report(const TString<char>& path, const std::string& message) const;

private:
    // The raw UTF-8 text that the path and attribute name point at, or null.
    const char* rawText(const TString<char>& path, const TString<char>& attribute) const;
    // Reads `count` numbers; false when the value is absent or too short.
    // A value that is there but not a list of numbers is reported.
    bool readList(const TString<char>& path, const TString<char>& attribute, int* values, size_t count) const;
    XML_NODE* elementAt(const TString<char>& path) const;
    // Parses m_text; problems in it are reported under the origin's file name.
    bool parse();
    void release();

    // The document's bytes, which the owned tree reads its pending children
    // from; kept while the tree lives.
    std::vector<char> m_text;
    XML_NODE* m_element = nullptr;
    bool m_borrowed = false;
    Toolkit::smart_ptr<DocumentOrigin> m_origin;
};

} // namespace UIKit
