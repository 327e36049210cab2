#include "web/WebPlayerRegistry.h"

#include <algorithm>

namespace talmo {
namespace {

constexpr const char* soundCloudDomain = "soundcloud.com";
constexpr const char* youTubeDomain = "youtube.com";
constexpr const char* youTubeShortLinkDomain = "youtu.be";
constexpr const char* youTubeMusicHost = "music.youtube.com";

// Virtual key codes of the ANSI layout (HIToolbox's Events.h).
constexpr KeyStroke spaceBar{.keyCode = 49, .flags = 0};
constexpr KeyStroke letterK{.keyCode = 40, .flags = 0};

// `next` has no fall-back on purpose, while `previous` rewinds the video and `toggle` plays or
// pauses it.
const WebTransportScript& youTubeScript() {
  static const WebTransportScript script{
      .toggle =
          "var b=document.querySelector('.ytp-play-button'); "
          "var v=document.querySelector('video'); if(b){b.click();} "
          "else if(v){if(v.paused){v.play();}else{v.pause();}} 'ok'",
      .next =
          "var b=document.querySelector('.ytp-next-button'); "
          "if(b&&b.getAttribute('aria-disabled')!=='true'){b.click();} 'ok'",
      .previous =
          "var b=document.querySelector('.ytp-prev-button'); "
          "var v=document.querySelector('video'); "
          "if(b&&b.getAttribute('aria-disabled')!=='true'){b.click();} "
          "else if(v){v.currentTime=0;} 'ok'",
  };
  return script;
}

WebPlayerTarget makeSoundCloud() {
  return {
      .id = "soundcloud-web",
      .displayName = "SoundCloud",
      .iconAssetName = "SoundCloudIcon",
      .hosts = {soundCloudDomain},
      .urlFilters = {soundCloudDomain},
      .launchURL = std::string("https://") + soundCloudDomain,
      .script = WebTransportScript::clicking(".playControl", ".skipControl__next",
                                             ".skipControl__previous"),
      .fallbackKey = spaceBar,
      .playerPathPrefixes = {},
      .alwaysPlayerHosts = {},
  };
}

WebPlayerTarget makeYouTube() {
  return {
      .id = "youtube-web",
      .displayName = "YouTube",
      .iconAssetName = "YouTubeIcon",
      .hosts = {youTubeDomain, youTubeShortLinkDomain},
      .urlFilters = {youTubeDomain, youTubeShortLinkDomain},
      .launchURL = std::string("https://www.") + youTubeDomain,
      .script = youTubeScript(),
      .fallbackKey = letterK,
      .playerPathPrefixes = {"/watch", "/playlist", "/shorts/", "/embed/", "/live/"},
      .alwaysPlayerHosts = {youTubeMusicHost, youTubeShortLinkDomain},
  };
}

}  // namespace

const std::vector<WebPlayerTarget>& WebPlayerRegistry::all() {
  static const std::vector<WebPlayerTarget> targets{makeSoundCloud(), makeYouTube()};
  return targets;
}

const WebPlayerTarget& WebPlayerRegistry::soundCloud() {
  return all()[0];
}

const WebPlayerTarget& WebPlayerRegistry::youTube() {
  return all()[1];
}

const WebPlayerTarget* WebPlayerRegistry::targetWithID(std::string_view id) {
  const auto found = std::ranges::find(all(), id, &WebPlayerTarget::id);
  return found == all().end() ? nullptr : &*found;
}

const WebPlayerTarget* WebPlayerRegistry::targetForURL(const std::string& url) {
  const auto found = std::ranges::find_if(
      all(), [&url](const WebPlayerTarget& target) { return target.matches(url); });
  return found == all().end() ? nullptr : &*found;
}

const std::vector<std::string>& WebPlayerRegistry::urlFilters() {
  static const std::vector<std::string> filters = [] {
    std::vector<std::string> joined;
    for (const WebPlayerTarget& target : all()) {
      for (const std::string& filter : target.urlFilters) {
        if (std::ranges::find(joined, filter) == joined.end()) joined.push_back(filter);
      }
    }
    return joined;
  }();
  return filters;
}

}  // namespace talmo
