// Texts the labels show: volumes, speeds, durations and numbers formatted,
// and labels cut, wrapped or ended with an ellipsis to fit their box.
#include "../descriptors/DescriptorTestSupport.h"

#include "descriptors/FontDescriptor.h"
#include "util/Util.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>

#include <vector>

using UIKit::FontDescriptor;
using UIKit::Util;

namespace {

std::vector<TString<wchar_t>> lines(const TString<wchar_t>& text) { return text.Split(L"\n"); }

TString<wchar_t> withoutBreaks(TString<wchar_t> text)
{
    std::erase(text, L'\n');
    return text;
}

class UtilTextTest : public testing::Test {
protected:
    UtilTextTest() : m_bitmap(1, 1), m_dc(m_bitmap), m_doc(R"(<Control><Font ptsize="10"/></Control>)")
    {
        m_font = Toolkit::smart_ptr<FontDescriptor>(new FontDescriptor(m_doc.Root()));
        m_dc.SetFont(m_font->GetFont());
    }
    int Width(const TString<wchar_t>& text) { return m_dc.GetTextExtent(wxString(text)).x; }

    wxBitmap m_bitmap;
    wxMemoryDC m_dc;
    descriptortest::Document m_doc;
    Toolkit::smart_ptr<FontDescriptor> m_font;
};

TEST_F(UtilTextTest, CutLineBreaksByCharactersAndNeverLosesOne)
{
    const TString<wchar_t> text = L"abcdefghij";
    TString<wchar_t> out;

    // Narrower than one character plus the 10 px kept free: each character
    // gets a line of its own.
    Util::CutLine(m_dc, wxSize(5, 20), m_font, text, out);
    EXPECT_EQ(withoutBreaks(out), text);
    for (size_t i = 0; i < out.size(); ++i) {
        if (out[i] != L'\n') {
            EXPECT_TRUE(i > 0 && out[i - 1] == L'\n') << "character " << i << " of " << std::wstring(out);
        }
    }

    // A box for about four characters: several lines, each within the box
    // less 10 px.
    const int box = Width(L"abcd") + 10;
    Util::CutLine(m_dc, wxSize(box, 20), m_font, text, out);
    EXPECT_EQ(withoutBreaks(out), text);
    EXPECT_GT(lines(out).size(), 1u);
    for (const auto& line : lines(out))
        EXPECT_LE(Width(line), box - 10) << std::wstring(line);

    EXPECT_EQ(Util::CutLine(m_dc, wxSize(1000, 20), {}, text, out), wxSize(0, 0));
    EXPECT_TRUE(out.empty());
}

TEST_F(UtilTextTest, FormatLabelEndsWithEllipsisOrWrapsByWords)
{
    const TString<wchar_t> text = L"The quick brown fox jumps over the lazy dog";
    const wxSize box(Width(L"The quick") + 3, 20);
    TString<wchar_t> out;

    Util::FormatLabel(m_dc, box, m_font, text, Util::OneLineEllipsis, out);
    EXPECT_EQ(out, L"The quick...");

    Util::FormatLabel(m_dc, box, m_font, text, Util::Wrapped, out);
    const auto wrapped = lines(out);
    EXPECT_GT(wrapped.size(), 2u);
    TString<wchar_t> joined;
    for (const auto& line : wrapped) {
        EXPECT_LE(Width(line), box.x) << std::wstring(line);
        joined += (joined.empty() ? L"" : L" ") + line;
    }
    EXPECT_EQ(joined, text) << "words keep their order, one blank between them";

    // Runs of blanks count as one; a text that fits is left alone.
    Util::FormatLabel(m_dc, wxSize(1000, 20), m_font, L"  a   b ", Util::OneLineEllipsis, out);
    EXPECT_EQ(out, L"a b");
}

TEST_F(UtilTextTest, AWordWiderThanTheBoxIsCut)
{
    const TString<wchar_t> word = L"Supercalifragilistic";
    const wxSize box(Width(L"Super") + 10, 20);
    TString<wchar_t> out;

    Util::FormatLabel(m_dc, box, m_font, L"to " + word + L" ok", Util::Wrapped, out);
    const auto pieces = lines(out);
    ASSERT_GT(pieces.size(), 3u) << std::wstring(out);
    EXPECT_EQ(pieces.front(), L"to");
    EXPECT_EQ(pieces.back(), L"ok");
    TString<wchar_t> rebuilt;
    for (size_t i = 1; i + 1 < pieces.size(); ++i) {
        EXPECT_LE(Width(pieces[i]), box.x) << std::wstring(pieces[i]);
        rebuilt += pieces[i];
    }
    EXPECT_EQ(rebuilt, word);

    // On one line the label is the first piece that fits, then "...".
    Util::FormatLabel(m_dc, box, m_font, word, Util::OneLineEllipsis, out);
    EXPECT_EQ(out, pieces[1] + L"...");
}

TEST_F(UtilTextTest, MultilineKeepsTheTextsOwnLineBreaks)
{
    struct Case { const wchar_t* text; const wchar_t* expected; };
    const Case cases[] = {{L"one\r\ntwo\rthree", L"one\ntwo\nthree"}, {L"one\n\ntwo", L"one\n\ntwo"}};
    TString<wchar_t> out;
    for (const auto& c : cases) {
        Util::FormatLabelMultiline(m_dc, wxSize(1000, 20), m_font, c.text, out);
        EXPECT_EQ(out, c.expected) << std::wstring(c.text);
    }
    // Each paragraph is wrapped on its own.
    const wxSize narrow(Width(L"one two") + 3, 20);
    Util::FormatLabelMultiline(m_dc, narrow, m_font, L"one two three\nfour", out);
    EXPECT_EQ(out, L"one two\nthree\nfour");
}

// Without an appearance the labels read as their keys, which keeps the
// expected texts readable; the decimal separator is the C locale's ".".
TEST(UtilFormatTest, VolumesAndSpeedsPickTheirUnitAndRounding)
{
    struct Case { uint64_t bytes; const wchar_t* volume; const wchar_t* speed; };
    const Case cases[] = {
        {1023, L"1023 LB_VOLUME_B", L"1023 LB_SPEED_B"},
        {1024, L"1 LB_VOLUME_KB", L"1 LB_SPEED_KB"},
        {1536, L"2 LB_VOLUME_KB", L"1 LB_SPEED_KB"}, // volume rounds, speed truncates
        {819199, L"800 LB_VOLUME_KB", L"799 LB_SPEED_KB"},
        {819200, L"0.78 LB_VOLUME_MB", L"0.78 LB_SPEED_MB"},
        {838860799, L"799.99 LB_VOLUME_MB", L"799.99 LB_SPEED_MB"},
        {838860800, L"0.78 LB_VOLUME_GB", L"0.78 LB_SPEED_GB"},
    };
    for (const auto& c : cases) {
        TString<wchar_t> volume;
        TString<wchar_t> speed;
        Util::FormatDataVolume(volume, c.bytes);
        Util::FormatDataSpeed(speed, c.bytes);
        EXPECT_EQ(volume, c.volume) << c.bytes;
        EXPECT_EQ(speed, c.speed) << c.bytes;
    }
}

TEST(UtilFormatTest, DurationsAndPhoneNumbers)
{
    const std::pair<uint64_t, const wchar_t*> durations[] = {
        {999, L"00:00:00"},
        {3723000, L"01:02:03"},
        {(123ull * 3600 + 4 * 60 + 5) * 1000, L"123:04:05"},
    };
    for (const auto& [ms, text] : durations) {
        TString<wchar_t> out;
        Util::FormatDuration(out, ms);
        EXPECT_EQ(out, text) << ms;
    }
    const std::pair<const wchar_t*, const wchar_t*> numbers[] = {
        {L"123456789", L"123456789"},
        {L"0123456789", L"012-345-6789"},
        {L"+x0123456789", L"+x-012-345-6789"},
    };
    for (const auto& [number, text] : numbers) {
        TString<wchar_t> out;
        Util::FormatMsisdn(out, number);
        EXPECT_EQ(out, text) << number;
    }
}

} // namespace
