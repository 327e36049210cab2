#include "nowplaying/AdapterJson.h"

#include <memory>
#include <simdjson.h>
#include <string_view>
#include <utility>

namespace talmo {
namespace {

using simdjson::ondemand::array;
using simdjson::ondemand::document;
using simdjson::ondemand::field;
using simdjson::ondemand::json_type;
using simdjson::ondemand::object;
using simdjson::ondemand::parser;
using simdjson::ondemand::value;

static_assert(AdapterJson::padding == simdjson::SIMDJSON_PADDING);

/// Shorter texts are copied, so that a title does not keep the artwork of its line.
constexpr std::size_t longText = 4096;

using Source = std::shared_ptr<const std::string>;

// The parser reads what it is asked for and takes the rest on trust. Each function below asks for
// all of its part and says whether it was JSON.

/// The content of a string, where it lies when it can stay there.
bool readText(value& json, const Source& source, AdapterText& text) {
  // From one quotation mark to the next token: the other mark and what is blank behind it.
  std::string_view token = json.raw_json_token();
  token = token.substr(0, token.rfind('"'));
  token.remove_prefix(1);
  if (token.size() >= longText && token.find('\\') == std::string_view::npos) {
    if (json.get_raw_json_string().error() != simdjson::SUCCESS) return false;
    text = AdapterText(source, token);
    return true;
  }
  std::string_view unescaped;
  if (json.get_string().get(unescaped) != simdjson::SUCCESS) return false;
  text = AdapterText(std::string(unescaped));
  return true;
}

// The parser does not bound it.
constexpr int deepestNesting = 512;

bool isValid(value json, int depth);

bool isValid(array& list, int depth) {  // NOLINT(misc-no-recursion)
  for (auto element : list) {
    value inner;
    if (std::move(element).get(inner) != simdjson::SUCCESS || !isValid(inner, depth)) return false;
  }
  return true;
}

bool isValid(object& dictionary, int depth) {  // NOLINT(misc-no-recursion)
  for (auto member : dictionary) {
    field inner;
    if (std::move(member).get(inner) != simdjson::SUCCESS) return false;
    if (inner.unescaped_key().error() != simdjson::SUCCESS) return false;
    if (!isValid(inner.value(), depth)) return false;
  }
  return true;
}

/// `depth` is that of the list or object that holds the value.
bool isValid(value json, int depth) {  // NOLINT(misc-no-recursion)
  json_type type{};
  if (depth == deepestNesting || json.type().get(type) != simdjson::SUCCESS) return false;
  switch (type) {
    case json_type::array: {
      array list;
      return json.get_array().get(list) == simdjson::SUCCESS && isValid(list, depth + 1);
    }
    case json_type::object: {
      object dictionary;
      return json.get_object().get(dictionary) == simdjson::SUCCESS &&
             isValid(dictionary, depth + 1);
    }
    case json_type::number:
      return json.get_double().error() == simdjson::SUCCESS;
    case json_type::string:
      return json.get_string().error() == simdjson::SUCCESS;
    case json_type::boolean:
      return json.get_bool().error() == simdjson::SUCCESS;
    case json_type::null: {
      bool isNull = false;
      return json.is_null().get(isNull) == simdjson::SUCCESS && isNull;
    }
  }
  return false;
}

/// A list or an object, unread but valid.
template <class Container>
bool readNested(Container& container, AdapterValue& result) {
  std::string_view json;
  if (container.raw_json().get(json) != simdjson::SUCCESS) return false;
  if (container.reset().error() != simdjson::SUCCESS || !isValid(container, 2)) return false;
  result = AdapterNested{AdapterText(std::string(json))};
  return true;
}

bool readValue(value json, const Source& source, AdapterValue& result) {
  json_type type{};
  if (json.type().get(type) != simdjson::SUCCESS) return false;
  switch (type) {
    case json_type::string: {
      AdapterText text{std::string()};
      if (!readText(json, source, text)) return false;
      result = std::move(text);
      return true;
    }
    case json_type::boolean: {
      bool boolean = false;
      if (json.get_bool().get(boolean) != simdjson::SUCCESS) return false;
      result = boolean;
      return true;
    }
    case json_type::number: {
      double number = 0;
      if (json.get_double().get(number) != simdjson::SUCCESS) return false;
      result = number;
      return true;
    }
    case json_type::null:
      result = nullptr;
      return isValid(json, 1);
    case json_type::array: {
      array list;
      return json.get_array().get(list) == simdjson::SUCCESS && readNested(list, result);
    }
    case json_type::object: {
      object dictionary;
      return json.get_object().get(dictionary) == simdjson::SUCCESS &&
             readNested(dictionary, result);
    }
  }
  return false;
}

bool readState(object& json, const Source& source, AdapterState& state) {
  for (auto member : json) {
    field inner;
    std::string_view key;
    AdapterValue content;
    if (std::move(member).get(inner) != simdjson::SUCCESS) return false;
    if (inner.unescaped_key().get(key) != simdjson::SUCCESS) return false;
    std::string name(key);
    if (!readValue(inner.value(), source, content)) return false;
    state.insert_or_assign(std::move(name), std::move(content));
  }
  return true;
}

bool readEnvelope(object& json, const Source& source, std::optional<AdapterState>& payload,
                  bool& isDiff) {
  for (auto member : json) {
    field inner;
    std::string_view key;
    if (std::move(member).get(inner) != simdjson::SUCCESS) return false;
    if (inner.unescaped_key().get(key) != simdjson::SUCCESS) return false;
    value content = inner.value();
    if (key == "payload") {
      payload.reset();
      object dictionary;
      if (content.get_object().get(dictionary) != simdjson::SUCCESS) {
        if (!isValid(content, 1)) return false;
      } else if (!readState(dictionary, source, payload.emplace())) {
        return false;
      }
    } else if (key == "diff") {
      isDiff = false;
      if (content.get_bool().get(isDiff) != simdjson::SUCCESS && !isValid(content, 1)) return false;
    } else if (!isValid(content, 1)) {
      return false;
    }
  }
  return true;
}

/// Reads `text` as one object by `readRoot`, which says whether its part was valid.
template <class Read>
bool parse(const Source& text, std::size_t length, Read readRoot) {
  parser reader;
  document json;
  object root;
  return reader.iterate(text->data(), length, text->size()).get(json) == simdjson::SUCCESS &&
         json.get_object().get(root) == simdjson::SUCCESS && readRoot(root) &&
         // That is its word for "nothing is left".
         json.current_location().error() == simdjson::OUT_OF_BOUNDS;
}

/// The text with the padding behind it.
Source padded(std::string text) {
  text.append(AdapterJson::padding, '\0');
  return std::make_shared<const std::string>(std::move(text));
}

}  // namespace

std::optional<AdapterEnvelope> AdapterJson::envelope(std::string line) {
  const std::size_t length = line.size();
  const Source source = padded(std::move(line));
  std::optional<AdapterState> payload;
  bool isDiff = false;
  const auto readRoot = [&](auto& root) { return readEnvelope(root, source, payload, isDiff); };
  if (!parse(source, length, readRoot) || !payload) return std::nullopt;
  return AdapterEnvelope{.payload = std::move(*payload), .isDiff = isDiff};
}

std::optional<AdapterState> AdapterJson::object(std::string text) {
  const std::size_t length = text.size();
  const Source source = padded(std::move(text));
  AdapterState state;
  const auto readRoot = [&](auto& root) { return readState(root, source, state); };
  if (!parse(source, length, readRoot)) return std::nullopt;
  return state;
}

}  // namespace talmo
