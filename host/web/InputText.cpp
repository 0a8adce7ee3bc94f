#include "web/InputText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>

namespace host {

namespace {

using InputJson = nlohmann::json;
using Kind = RemoteInput::Kind;

struct KindName {
  std::string_view name;
  Kind kind;
};

constexpr std::array KINDS = {
    KindName{"down", Kind::DOWN}, KindName{"move", Kind::MOVE},
    KindName{"up", Kind::UP},     KindName{"double", Kind::DOUBLE_TAP},
    KindName{"key", Kind::KEY},   KindName{"view", Kind::STEP_VIEW},
    KindName{"fit", Kind::FIT},
};

struct KeyName {
  std::string_view name;
  WPARAM key;
};

constexpr std::array KEYS = {
    KeyName{"left", VK_LEFT},
    KeyName{"right", VK_RIGHT},
    KeyName{"up", VK_UP},
    KeyName{"down", VK_DOWN},
    KeyName{"enter", VK_RETURN},
    KeyName{"escape", VK_ESCAPE},
    KeyName{"home", VK_HOME},
    KeyName{"delete", VK_DELETE},
    KeyName{"backspace", VK_BACK},
    KeyName{"o", 'O'},
    KeyName{"h", 'H'},
    KeyName{"v", 'V'},
    KeyName{"r", 'R'},
    KeyName{"i", 'I'},
    KeyName{"b", 'B'},
    KeyName{"s", 'S'},
    KeyName{"q", 'Q'},
};

constexpr int SMALLEST_WIDTH = 176;
constexpr int SMALLEST_HEIGHT = 144;
constexpr int LARGEST_SIDE = 2560;
constexpr int LOWEST_DPI = 48;
constexpr int HIGHEST_DPI = 480;

/// Nothing when the member is no number. Messages to windows hold 16 bits.
std::optional<int> GetNumber(const InputJson& object, const char* name) {
  const auto found = object.find(name);
  if (found == object.end() || !found->is_number()) {
    return std::nullopt;
  }
  constexpr double LOWEST = std::numeric_limits<std::int16_t>::min();
  constexpr double HIGHEST = std::numeric_limits<std::int16_t>::max();
  const double number = found->get<double>();
  return std::isfinite(number)
             ? std::optional(static_cast<int>(std::clamp(std::floor(number), LOWEST, HIGHEST)))
             : std::nullopt;
}

std::string GetText(const InputJson& object, const char* name) {
  const auto found = object.find(name);
  return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

bool ReadPlace(const InputJson& object, RemoteInput& input) {
  const std::optional<int> x = GetNumber(object, "x");
  const std::optional<int> y = GetNumber(object, "y");
  input.x = x.value_or(0);
  input.y = y.value_or(0);
  return x && y;
}

bool ReadKey(const InputJson& object, RemoteInput& input) {
  const std::string name = GetText(object, "key");
  const auto* const found = std::ranges::find(KEYS, name, &KeyName::name);
  if (found == KEYS.end()) {
    return false;
  }
  input.key = found->key;
  return true;
}

bool ReadStep(const InputJson& object, RemoteInput& input) {
  input.step = GetNumber(object, "step").value_or(0);
  return input.step == 1 || input.step == -1;
}

bool ReadSize(const InputJson& object, RemoteInput& input) {
  const std::optional<int> width = GetNumber(object, "width");
  const std::optional<int> height = GetNumber(object, "height");
  const std::optional<int> dpi = GetNumber(object, "dpi");
  if (!width || !height || !dpi) {
    return false;
  }
  input.width = std::clamp(*width, SMALLEST_WIDTH, LARGEST_SIDE);
  input.height = std::clamp(*height, SMALLEST_HEIGHT, LARGEST_SIDE);
  input.dpi = std::clamp(*dpi, LOWEST_DPI, HIGHEST_DPI);
  return true;
}

bool ReadRest(const InputJson& object, RemoteInput& input) {
  switch (input.kind) {
    case Kind::KEY:
      return ReadKey(object, input);
    case Kind::STEP_VIEW:
      return ReadStep(object, input);
    case Kind::FIT:
      return ReadSize(object, input);
    case Kind::DOWN:
    case Kind::MOVE:
    case Kind::UP:
    case Kind::DOUBLE_TAP:
      break;
  }
  return ReadPlace(object, input);
}

}  // namespace

std::optional<RemoteInput> ParseInput(const std::string& text) {
  constexpr bool THROWS = false;
  const InputJson object = InputJson::parse(text, nullptr, THROWS);
  if (!object.is_object()) {
    return std::nullopt;
  }
  const std::string type = GetText(object, "type");
  const auto* const kind = std::ranges::find(KINDS, type, &KindName::name);
  if (kind == KINDS.end()) {
    return std::nullopt;
  }
  RemoteInput input;
  input.kind = kind->kind;
  if (const auto stream = object.find("stream");
      stream != object.end() && stream->is_number_unsigned()) {
    input.stream = stream->get<std::uint64_t>();
  }
  return ReadRest(object, input) ? std::optional(input) : std::nullopt;
}

}  // namespace host
