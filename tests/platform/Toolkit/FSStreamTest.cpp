#include "Toolkit/FSStream.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using Toolkit::FSStream;

TEST(FSStreamTest, WritesAppendsAndReadsBackWholeFiles)
{
    testsupport::TempDir dir;
    const TString<char> path = dir.Str() + "/data.bin";
    const std::string first("abc\0def", 7);
    {
        FSStream out(path, FSStream::ModeWrite);
        ASSERT_TRUE(out.IsOpen());
        EXPECT_EQ(out.Write(first.data(), first.size()), 7);
        EXPECT_TRUE(out.Flush());
    }
    {
        FSStream out(path, FSStream::ModeAppend);
        EXPECT_EQ(out.Write("XY", 2), 2);
    }
    FSStream in(path, FSStream::ModeRead);
    EXPECT_EQ(in.Length(), 9);
    char head[4] = {};
    EXPECT_EQ(in.Read(head, 3), 3);
    EXPECT_STREQ(head, "abc");
    std::vector<unsigned char> rest;
    EXPECT_TRUE(in.ReadAll(rest));
    EXPECT_EQ(std::string(rest.begin(), rest.end()), std::string("\0defXY", 6));
    EXPECT_TRUE(in.Seek(1));
    EXPECT_EQ(in.Read(head, 2), 2);
    EXPECT_EQ(std::string(head, 2), "bc");
    EXPECT_EQ(in.Write("no", 2), -1); // read-only descriptor
}

TEST(FSStreamTest, MissingFilesAreQuietProbesOtherFailuresAreLogged)
{
    testsupport::LogCapture log;
    testsupport::TempDir dir;
    FSStream missing(TString<char>(dir.Str() + "/none.xml"), FSStream::ModeRead);
    EXPECT_EQ(missing.GetError(), ENOENT);
    char c;
    EXPECT_EQ(missing.Read(&c, 1), -1);
    EXPECT_EQ(log.Size(), 0u) << log.Dump();

    const TString<char> inMissingDir = dir.Str() + "/no/such/dir/out.txt";
    EXPECT_FALSE(FSStream(inMissingDir, FSStream::ModeWrite).IsOpen());
    EXPECT_FALSE(FSStream(TString<char>(dir.Str() + "/x"), 7).IsOpen());
    EXPECT_EQ(log.Size(), 2u) << log.Dump();
    EXPECT_TRUE(log.Contains(L"no/such/dir/out.txt: No such file or directory"));
    EXPECT_TRUE(log.Contains(L"unknown open mode 7"));
}

} // namespace
