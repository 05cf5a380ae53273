#pragma once
#include "module/Export.h"
// The managers that module initialisation creates, each with its place in
// the creation order and its (different) place in the release order.
#include "module/Singleton.h"

#include <string>
#include <vector>

namespace UIKit {

class UIKIT_API SingletonTable {
public:
    struct Row {
        std::string name;
        int creationRank;
        int releaseRank;
        void (*create)();
        void (*release)();
    };

    template <class T>
    static Row Entry(const char* name, int creationRank, int releaseRank)
    {
        return Row{name, creationRank, releaseRank, &Singleton<T>::CreateInstance, &Singleton<T>::ReleaseInstance};
    }

    explicit SingletonTable(std::vector<Row> rows);

    void CreateAll() const;
    void ReleaseAll() const;

    std::vector<std::string> CreationOrder() const;
    std::vector<std::string> ReleaseOrder() const;

    // The library's own managers.
    static const SingletonTable& Library();

private:
    std::vector<Row> m_byCreation;
    std::vector<Row> m_byRelease;
};

} // namespace UIKit
