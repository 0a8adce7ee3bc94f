#include "base/Format.h"

#include <crt.h>

#include <algorithm>

namespace ferolin {

namespace {

constexpr std::size_t MAX_INTEGER = sizeof "-2147483648" - 1;

/// Writes into the caller's buffer; text that does not fit is dropped.
class Output {
 public:
  Output(char* outBuffer, std::size_t outSize) : buffer(outBuffer), size(outSize) {}

  void Append(std::string_view text) { length += text.copy(buffer + length, Room()); }

  void Append(const char* conversion, const FormatArgument& argument) {
    switch (argument.kind) {
      case FormatArgument::Kind::INTEGER:
        AppendInteger(conversion, argument.integer);
        break;
      case FormatArgument::Kind::REAL:
        Printed(CrtPrintDouble(buffer + length, size - length, conversion, argument.real));
        break;
      case FormatArgument::Kind::TEXT_8BIT:
        Append(argument.text);
        break;
    }
  }

  std::size_t Finish() {
    buffer[length] = '\0';
    return length;
  }

 private:
  /// Prints "%i" and "%0<digit>i", which is nearly all, without the run-time.
  void AppendInteger(const char* conversion, int value) {
    const bool isFilled = conversion[1] == '0' && conversion[2] >= '1' && conversion[2] <= '9';
    if (conversion[isFilled ? 3 : 1] != 'i') {
      Printed(CrtPrintInt(buffer + length, size - length, conversion, value));
      return;
    }
    char text[MAX_INTEGER];
    char* const end = text + MAX_INTEGER;
    char* start = end;
    // As unsigned, which has room for the smallest number without its sign.
    auto rest = static_cast<unsigned>(value);
    if (value < 0) {
      rest = 0 - rest;
    }
    for (; rest != 0 || start == end; rest /= 10) {
      *--start = static_cast<char>('0' + rest % 10);
    }
    const std::ptrdiff_t digits = isFilled ? conversion[2] - '0' - (value < 0 ? 1 : 0) : 0;
    while (end - start < digits) {
      *--start = '0';
    }
    if (value < 0) {
      *--start = '-';
    }
    Append(std::string_view(start, static_cast<std::size_t>(end - start)));
  }

  std::size_t Room() const { return size - 1 - length; }
  void Printed(int count) {
    length += std::min(static_cast<std::size_t>(std::max(count, 0)), Room());
  }

  char* buffer;
  std::size_t size;
  std::size_t length = 0;
};

constexpr std::size_t MAX_CONVERSION = 16;

}  // namespace

std::size_t FormatArguments(char* out, std::size_t size, std::string_view format,
                            std::span<const FormatArgument> arguments) {
  if (size == 0) {
    return 0;
  }
  Output output(out, size);
  std::size_t next = 0;
  while (!format.empty()) {
    const std::size_t percent = std::min(format.find('%'), format.size());
    output.Append(format.substr(0, percent));
    format.remove_prefix(percent);
    if (format.empty()) {
      break;
    }
    const std::size_t length =
        std::min(format.find_first_not_of("0123456789.", 1), format.size() - 1) + 1;
    if (format.substr(0, length) == "%%") {
      output.Append("%");
    } else if (next < arguments.size() && length < MAX_CONVERSION) {
      char conversion[MAX_CONVERSION];
      conversion[format.copy(conversion, length)] = '\0';
      output.Append(conversion, arguments[next++]);
    }
    format.remove_prefix(length);
  }
  return output.Finish();
}

}  // namespace ferolin
