#include "web/ReadoutText.h"

#include "base/NumberText.h"
#include "outputs/JsonWriter.h"

namespace host {

namespace {

/// As --json ends its lines.
constexpr std::string_view END_OF_OBJECT = "}\n";

const char* GetName(ReceiverState state) {
  switch (state) {
    case ReceiverState::OK:
      return "ok";
    case ReceiverState::NO_FIX:
      return "no fix";
    case ReceiverState::SILENT:
      break;
  }
  return "silent";
}

/// The update without a fix, where it had one.
Update WithoutFix(Update update) {
  if (update.fix) {
    update.fix->hasFix = false;
  }
  return update;
}

}  // namespace

ReceiverState FindReceiverState(const Snapshot& snapshot, WebTime now) {
  if (!snapshot.update.notice.empty() || now - snapshot.lastHeard > LONGEST_FIX_AGE) {
    return ReceiverState::SILENT;
  }
  const bool hasFix = snapshot.update.fix && snapshot.update.fix->hasFix;
  return hasFix ? ReceiverState::OK : ReceiverState::NO_FIX;
}

std::optional<double> GetFixAge(const Snapshot& snapshot, WebTime now) {
  if (!snapshot.lastFix) {
    return std::nullopt;
  }
  return std::chrono::duration<double>(now - *snapshot.lastFix).count();
}

std::string DescribeReadouts(const Snapshot& snapshot, WebTime now) {
  const bool isOld = !snapshot.lastFix || now - *snapshot.lastFix > LONGEST_FIX_AGE;
  std::string text = isOld ? JsonUpdate(WithoutFix(snapshot.update), snapshot.figures)
                           : JsonUpdate(snapshot.update, snapshot.figures);
  text.resize(text.size() - END_OF_OBJECT.size());
  const std::optional<double> age = GetFixAge(snapshot, now);
  text += R"(,"fix_age_s":)" + (age ? DescribeNumber(*age, 1) : "null");
  text += std::string(R"(,"receiver":")") + GetName(FindReceiverState(snapshot, now)) + "\"}";
  return text;
}

}  // namespace host
