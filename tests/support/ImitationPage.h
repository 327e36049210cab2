#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace talmo::test {

/// A page of a web player's imitated site, which plays one of its tracks over and over until it is
/// told to go to another.
struct ImitationPage {
  /// What its reports are kept under; letters and digits.
  std::string name;
  /// The titles of its tracks, at least one. The page's own title holds that of the current one.
  std::vector<std::string> tracks;
  std::string artist = "Nobody";
  /// Whether it starts to play by itself.
  bool plays = false;

  /// The addresses under which the sites show it.
  std::string youTube() const;
  std::string soundCloud() const;
};

/// What a server answers for a page; empty when it has none of that host and path.
std::string imitationHtml(std::string_view host, std::string_view path);

/// The script that all pages share.
std::string_view imitationScript();

}  // namespace talmo::test
