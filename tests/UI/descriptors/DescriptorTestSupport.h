#pragma once
// Shared by the reader, descriptor, factory, control and frame tests: a pack
// held in memory (documents, images and strings) standing in for an
// appearance, a collector of the problems reported to the error sink, a
// parsed document that keeps its tree alive, and a fresh factory and
// template registry per test.
#include "ErrorCapture.h"

#include "controls/ImageCtrl.h"
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/ImageDescriptor.h"
#include "descriptors/TemplateManager.h"
#include "factory/CtrlFactory.h"
#include "xml/IResourceProvider.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <gtest/gtest.h>

#include <wx/frame.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace descriptortest {

class FakeResources : public UIKit::IResourceProvider {
public:
    bool ReadDescriptor(const TString<wchar_t>& name, std::vector<unsigned char>& bytes) override
    {
        const auto it = documents.find(name);
        if (it == documents.end())
            return false;
        bytes.assign(it->second.begin(), it->second.end());
        return true;
    }
    bool ReadGraphic(const TString<wchar_t>& name, wxImage& image) override
    {
        requested.push_back(name);
        const auto it = images.find(name);
        image = it == images.end() ? wxImage() : it->second;
        return it != images.end();
    }
    const TString<wchar_t>& GetAddStr(const TString<char>& key) override
    {
        return strings.emplace(key, TString<wchar_t>(std::wstring(key.begin(), key.end()))).first->second;
    }
    bool IsStrExist(const TString<char>& key) const override { return strings.count(key) != 0; }
    Toolkit::smart_ptr<UIKit::ImageCtrl> ImageCtrlWithIdentifier(Toolkit::smart_ptr<UIKit::ImageDescriptor> d,
                                                                 const wxSize& size) override
    {
        if (!d || !images.count(d->GetName()))
            return {};
        unsigned int m[4];
        UIKit::ImageCtrl::MarginsOf(*d, m);
        return Toolkit::smart_ptr<UIKit::ImageCtrl>(
            new UIKit::ImageCtrl(images[d->GetName()], size, m[0], m[1], m[2], m[3]));
    }

    std::map<std::wstring, std::string> documents;
    std::map<std::wstring, wxImage> images;
    std::map<std::string, TString<wchar_t>> strings;
    std::vector<std::wstring> requested;
};

using testsupport::ErrorCapture;

// One parsed document; nodes made from it live as long as it does.
class Document {
public:
    explicit Document(const std::string& xml, UIKit::IResourceProvider* resources = nullptr,
                      const std::string& file = "test.xml")
    {
        m_loader.SetResources(resources);
        m_loader.SetFileName(file);
        EXPECT_TRUE(m_loader.LoadFromBytes(xml.data(), xml.size())) << xml;
    }
    Toolkit::smart_ptr<UIKit::XMLNode> Root() const { return m_loader.GetRootNode(); }

    template <class D>
    Toolkit::smart_ptr<D> Make() const
    {
        return Toolkit::smart_ptr<D>(new D(Root()));
    }

private:
    UIKit::XMLLoader m_loader;
};

// A fresh factory and template registry for the lifetime of the object.
struct FreshFactory {
    FreshFactory()
    {
        UIKit::CtrlFactory::ReleaseInstance();
        UIKit::TemplateManager::ReleaseInstance();
        UIKit::CtrlFactory::CreateInstance();
        UIKit::TemplateManager::CreateInstance();
    }
    ~FreshFactory()
    {
        UIKit::TemplateManager::ReleaseInstance();
        UIKit::CtrlFactory::ReleaseInstance();
    }
};

// Gives each test a fresh factory and template registry, and a frame when asked.
class FactoryFixture : public testing::Test {
protected:
    void TearDown() override { delete m_frame; }
    UIKit::CtrlFactory& Factory() { return *UIKit::CtrlFactory::Instance(); }
    // A top window to build controls in, made on first use.
    wxFrame* Frame()
    {
        if (!m_frame)
            m_frame = new wxFrame(nullptr, wxID_ANY, "factory");
        return m_frame;
    }

private:
    FreshFactory m_factory;
    wxFrame* m_frame = nullptr;
};

} // namespace descriptortest
