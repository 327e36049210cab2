#include "tests/support/ImitationPage.h"

#include "tests/support/UrlEscaped.h"

namespace talmo::test {
namespace {

std::string query(const ImitationPage& page) {
  std::string text = "artist=" + urlEscaped(page.artist);
  for (const std::string& track : page.tracks) text += "&track=" + urlEscaped(track);
  if (page.plays) text += "&plays";
  return text;
}

// Everything that comes from the address is put in as text by the page's script, so no address can
// make a page into another.
constexpr std::string_view script = R"js('use strict';
const query = new URLSearchParams(location.search);

let reports = Promise.resolve();
let isClosing = false;
addEventListener('pagehide', () => { isClosing = true; });

// One after another, so that they arrive in the order in which things happened.
function report(page, event) {
  if (isClosing) return;
  const send = () => fetch('/report?page=' + encodeURIComponent(page),
                           {method: 'POST', body: event, keepalive: true});
  reports = reports.then(send).catch(() => {});
}

function player({page, media, buttons, key, title}) {
  const tracks = query.getAll('track');
  const artist = query.get('artist');
  let current = 0;

  const show = (index) => {
    current = (index + tracks.length) % tracks.length;
    media.src = '/tune-' + (220 + 110 * (current % 3)) + '.wav';
    document.title = title(tracks[current], artist);
    document.querySelector('h1').textContent = tracks[current];
    navigator.mediaSession.metadata = new MediaMetadata({title: tracks[current], artist});
    report(page, 'track ' + (current + 1));
  };
  const go = (step) => {
    show(current + step);
    media.play();
  };
  const toggle = () => media.paused ? media.play() : media.pause();

  const onAction = (action, carryOut) => {
    navigator.mediaSession.setActionHandler(action, () => {
      report(page, 'action ' + action);
      carryOut();
    });
  };
  onAction('play', () => media.play());
  onAction('pause', () => media.pause());
  onAction('nexttrack', () => go(1));
  onAction('previoustrack', () => go(-1));

  const onClick = (selector, carryOut) => {
    document.querySelector(selector).addEventListener('click', () => {
      report(page, 'click ' + selector);
      carryOut();
    });
  };
  onClick(buttons.toggle, toggle);
  onClick(buttons.next, () => go(1));
  onClick(buttons.previous, () => go(-1));

  document.addEventListener('keydown', (event) => {
    report(page, 'key ' + event.code);
    if (event.code !== key) return;
    event.preventDefault();
    toggle();
  });
  media.loop = true;
  media.addEventListener('playing', () => report(page, 'plays'));
  media.addEventListener('pause', () => report(page, 'pauses'));
  document.addEventListener('visibilitychange', () => report(page, document.visibilityState));

  show(0);
  report(page, document.visibilityState);
  if (query.has('plays')) media.play();
}
)js";

constexpr std::string_view watchHtml = R"html(<!doctype html>
<html lang="en">
<meta charset="utf-8">
<h1></h1>
<video width="320" height="180"></video>
<button class="ytp-prev-button">Previous</button>
<button class="ytp-play-button">Play</button>
<button class="ytp-next-button">Next</button>
<script src="/player.js"></script>
<script>
player({
  page: query.get('v'),
  media: document.querySelector('video'),
  buttons: {
    toggle: '.ytp-play-button', next: '.ytp-next-button', previous: '.ytp-prev-button'
  },
  key: 'KeyK',
  title: (track) => track + ' - YouTube',
});
</script>
</html>
)html";

constexpr std::string_view trackHtml = R"html(<!doctype html>
<html lang="en">
<meta charset="utf-8">
<h1></h1>
<button class="skipControl__previous">Previous</button>
<button class="playControl">Play</button>
<button class="skipControl__next">Next</button>
<script src="/player.js"></script>
<script>
player({
  page: location.pathname.split('/')[2],
  media: new Audio(),
  buttons: {
    toggle: '.playControl', next: '.skipControl__next', previous: '.skipControl__previous'
  },
  key: 'Space',
  title: (track, artist) => 'Stream ' + track + ' by ' + artist + ' | SoundCloud',
});
</script>
</html>
)html";

/// A page of a site without a player: its home page, a search page.
constexpr std::string_view otherHtml = R"html(<!doctype html>
<html lang="en">
<meta charset="utf-8">
<h1></h1>
<script src="/player.js"></script>
<script>
document.title = location.pathname === '/' ? location.hostname : query.get('search_query');
document.querySelector('h1').textContent = document.title;
report(location.hostname + location.pathname, 'loads');
</script>
</html>
)html";

}  // namespace

std::string ImitationPage::youTube() const {
  return "https://www.youtube.com/watch?v=" + urlEscaped(name) + '&' + query(*this);
}

std::string ImitationPage::soundCloud() const {
  return "https://soundcloud.com/tracks/" + urlEscaped(name) + '?' + query(*this);
}

std::string imitationHtml(std::string_view host, std::string_view path) {
  const bool isSoundCloud = host == "soundcloud.com";
  if (isSoundCloud && path.starts_with("/tracks/")) return std::string(trackHtml);
  if (!isSoundCloud && path == "/watch") return std::string(watchHtml);
  if (path == "/" || path == "/results") return std::string(otherHtml);
  return {};
}

std::string_view imitationScript() {
  return script;
}

}  // namespace talmo::test
