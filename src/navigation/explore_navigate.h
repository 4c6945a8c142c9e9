// What every navigable item offers. Five of the operations are declared only: the program gives them no
// behaviour, and an item answers them with nothing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quillon::navigation {

class IExploreNavigate {
public:
    using Items = std::vector<std::shared_ptr<IExploreNavigate>>;
    virtual ~IExploreNavigate() = default;

    virtual std::int64_t NumChildren() const = 0;
    virtual Items FullList() { return {}; }
    virtual std::int64_t ID() const = 0;
    virtual std::string Text() const = 0;
    virtual void Delete() {}
    virtual void FillAncestry(Items&) {}
    virtual void ShowItems(Items&) {}
    virtual Items GetChildren() { return {}; }
};

}  // namespace quillon::navigation
