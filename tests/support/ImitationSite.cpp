#include "tests/support/ImitationSite.h"

#include <algorithm>
#include <httplib.h>
#include <stdexcept>

#include "support/MutexLock.h"
#include "tests/support/Tunes.h"
#include "tests/support/WaitUntil.h"

namespace talmo::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds patience = 30s;
/// Long enough for a media session; short enough that a browser fetches it at once.
constexpr std::uint32_t tuneSeconds = 60;

std::string hostOf(const httplib::Request& request) {
  const std::string host = request.get_header_value("Host");
  return host.substr(0, host.find(':'));
}

}  // namespace

ImitationSite::ImitationSite()
    : server_(
          std::make_unique<httplib::SSLServer>(certificate_.certificate(), certificate_.key())) {
  if (!server_->is_valid()) throw std::runtime_error("no HTTPS server");
  // A connection that is kept open keeps a thread; so each is for one request.
  server_->set_keep_alive_max_count(1);
  server_->new_task_queue = [] { return new httplib::ThreadPool(16); };
  answer();
  port_ = server_->bind_to_any_port("127.0.0.1");
  if (port_ <= 0) throw std::runtime_error("no port for the sites");
  thread_ = std::thread([this] { server_->listen_after_bind(); });
  // Only a server that listens can be stopped.
  waitUntil([this] { return server_->is_running(); });
}

ImitationSite::~ImitationSite() {
  server_->stop();
  thread_.join();
}

void ImitationSite::answer() {
  server_->Get("/player.js", [](const httplib::Request&, httplib::Response& response) {
    response.set_content(std::string(imitationScript()), "text/javascript");
  });
  server_->Get(
      R"(/tune-(\d{1,4})\.wav)", [](const httplib::Request& request, httplib::Response& response) {
        response.set_header("Accept-Ranges", "bytes");
        response.set_content(tune(std::stoi(request.matches[1]), tuneSeconds), "audio/wav");
      });
  server_->Get(".*", [](const httplib::Request& request, httplib::Response& response) {
    const std::string html = imitationHtml(hostOf(request), request.path);
    if (html.empty()) {
      response.status = 404;
    } else {
      response.set_content(html, "text/html");
    }
  });
  server_->Post("/report", [this](const httplib::Request& request, httplib::Response& response) {
    const MutexLock lock(mutex_);
    reports_[request.get_param_value("page")].push_back(request.body);
    response.status = 204;
  });
}

std::vector<std::string> ImitationSite::browserArguments() const {
  const std::string here = "127.0.0.1:" + std::to_string(port_);
  std::string rules;
  for (const char* domain : {"soundcloud.com", "youtube.com", "youtu.be"}) {
    rules += std::string("MAP ") + domain + ' ' + here + ", MAP *." + domain + ' ' + here + ", ";
  }
  return {"--host-resolver-rules=" + rules + "MAP * ~NOTFOUND", "--ignore-certificate-errors",
          "--autoplay-policy=no-user-gesture-required"};
}

std::vector<std::string> ImitationSite::reports(const std::string& page) const {
  const MutexLock lock(mutex_);
  const auto found = reports_.find(page);
  return found == reports_.end() ? std::vector<std::string>{} : found->second;
}

std::size_t ImitationSite::count(const std::string& page, const std::string& report) const {
  const std::vector<std::string> all = reports(page);
  return static_cast<std::size_t>(std::ranges::count(all, report));
}

bool ImitationSite::waitFor(const std::string& page, const std::string& report,
                            std::size_t count) const {
  return waitUntil([&] { return this->count(page, report) >= count; }, patience, 5ms);
}

void ImitationSite::clear() {
  const MutexLock lock(mutex_);
  reports_.clear();
}

}  // namespace talmo::test
