#pragma once
// Parses a control element from text and keeps its tree alive, and makes
// sure the factory and template registry exist with the generators the
// descriptor tests use.
#include "descriptors/BaseCtrlDescriptor.h"
#include "descriptors/TemplateManager.h"
#include "factory/CtrlFactory.h"
#include "xml/XMLLoader.h"
#include "xml/XMLNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace descriptortest {

// One parsed document; nodes made from it live as long as it does.
class Document {
public:
    explicit Document(const std::string& xml)
    {
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

// Gives each test a fresh factory and template registry.
class FactoryFixture : public testing::Test {
protected:
    void SetUp() override
    {
        UIKit::CtrlFactory::ReleaseInstance();
        UIKit::TemplateManager::ReleaseInstance();
        UIKit::CtrlFactory::CreateInstance();
        UIKit::TemplateManager::CreateInstance();
    }
    void TearDown() override
    {
        UIKit::TemplateManager::ReleaseInstance();
        UIKit::CtrlFactory::ReleaseInstance();
    }
    UIKit::CtrlFactory& Factory() { return *UIKit::CtrlFactory::Instance(); }
};

} // namespace descriptortest
