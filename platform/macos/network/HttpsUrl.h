#pragma once

#include <string>

namespace talmo {

/// Whether `url` is a URL with a host that is fetched over HTTPS and over nothing less.
bool isHttpsUrl(const std::string& url);

}  // namespace talmo
