// Util: fitting labels into boxes.
#include "util/Util.h"

#include "descriptors/FontDescriptor.h"

#include <vector>

namespace UIKit {
namespace {

std::vector<TString<wchar_t>> splitWords(const TString<wchar_t>& text)
{
    std::vector<TString<wchar_t>> words;
    for (const auto& piece : text.Split(L" "))
        if (!piece.empty())
            words.push_back(piece);
    return words;
}

int widthOf(wxDC& dc, const TString<wchar_t>& text)
{
    return dc.GetTextExtent(wxString(text)).x;
}

void selectFont(wxDC& dc, const Toolkit::smart_ptr<FontDescriptor>& font)
{
    if (font && font->GetFont().IsOk())
        dc.SetFont(font->GetFont());
}

} // namespace

// The part of a word that fits on the first line.
TString<wchar_t> Util::firstPiece(wxDC& dc, const wxSize& box, const Toolkit::smart_ptr<FontDescriptor>& font,
                                  const TString<wchar_t>& word)
{
    TString<wchar_t> pieces;
    CutLine(dc, box, font, word, pieces);
    for (const auto& piece : pieces.Split(L"\n"))
        if (!piece.empty())
            return piece;
    return TString<wchar_t>();
}

wxSize Util::CutLine(wxDC& dc, const wxSize& box, Toolkit::smart_ptr<FontDescriptor> font,
                     const TString<wchar_t>& text, TString<wchar_t>& out)
{
    out.clear();
    if (!font)
        return wxSize(0, 0);
    selectFont(dc, font);
    // Ten pixels are kept free so a cut line never touches the box edge.
    const int limit = box.x - 10;
    TString<wchar_t> line;
    wxSize size(0, 0);
    for (const wchar_t c : text) {
        line += c;
        size = dc.GetTextExtent(wxString(line));
        if (size.x <= limit) {
            out += c;
            continue;
        }
        // The character starts a new line; when even alone it is too wide it
        // still gets that line, so no character is ever lost.
        out += L'\n';
        out += c;
        line.assign(1, c);
        if (dc.GetTextExtent(wxString(line)).x > limit)
            line.clear();
    }
    return size;
}

void Util::FormatLabel(wxDC& dc, const wxSize& box, Toolkit::smart_ptr<FontDescriptor> font,
                       const TString<wchar_t>& text, FormatType mode, TString<wchar_t>& out)
{
    selectFont(dc, font);
    out.clear();
    const std::vector<TString<wchar_t>> words = splitWords(text);
    // Most labels fit on one line: one measure of the whole line instead of
    // one per word, each of which lays the text out again.
    TString<wchar_t> whole;
    for (const auto& word : words)
        whole += (whole.empty() ? L"" : L" ") + word;
    if (widthOf(dc, whole) <= box.x) {
        out = whole;
        return;
    }
    TString<wchar_t> line;
    for (const auto& word : words) {
        const TString<wchar_t> candidate = line.empty() ? word : TString<wchar_t>(line + L" " + word);
        if (widthOf(dc, candidate) <= box.x) {
            line = candidate;
            continue;
        }
        if (mode == OneLineEllipsis) {
            if (line.empty()) {
                line = firstPiece(dc, box, font, word);
            }
            out = line + L"...";
            return;
        }
        if (!line.empty()) {
            out += line + L"\n";
            line.clear();
        }
        if (widthOf(dc, word) <= box.x) {
            line = word;
            continue;
        }
        // A word wider than the box is broken into pieces of a line each.
        TString<wchar_t> pieces;
        CutLine(dc, box, font, word, pieces);
        for (const auto& piece : pieces.Split(L"\n"))
            if (!piece.empty())
                out += piece + L"\n";
    }
    if (!line.empty())
        out += line;
    else if (!out.empty() && out.back() == L'\n')
        out.pop_back();
}

void Util::FormatLabelMultiline(wxDC& dc, const wxSize& box, Toolkit::smart_ptr<FontDescriptor> font,
                                const TString<wchar_t>& text, TString<wchar_t>& out)
{
    out.clear();
    bool first = true;
    TString<wchar_t> normalised = text;
    normalised.ReplaceAll(L"\r\n", L"\n");
    for (const auto& paragraph : normalised.Split(L"\r\n")) {
        TString<wchar_t> formatted;
        FormatLabel(dc, box, font, paragraph, Wrapped, formatted);
        if (!first)
            out += L"\n";
        out += formatted;
        first = false;
    }
}

} // namespace UIKit
