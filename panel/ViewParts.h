#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/View.h"

namespace talmo {

// The parts that views are put together from. The first argument is the part's identity.

View textView(std::string identity, ViewRole role, std::string text);
View symbolView(std::string identity, ViewRole role, std::string name);
View assetView(std::string identity, ViewRole role, std::string name);
View pictureView(std::string identity, ViewRole role, Image image);
View verticalView(std::string identity, ViewRole role, std::vector<View> children);
View horizontalView(std::string identity, ViewRole role, std::vector<View> children);
View buttonView(std::string identity, ViewRole role, std::vector<View> children,
                std::function<void()> action);
/// A button with a text and, if one is named, a symbol before it.
View textButtonView(std::string identity, ViewRole role, std::string text,
                    std::function<void()> action,
                    const std::optional<std::string>& symbol = std::nullopt);

}  // namespace talmo
