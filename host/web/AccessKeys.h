// The keys of the links.
#pragma once

#include <string>
#include <string_view>

#include "web/Role.h"

namespace host {

/// Two secrets: who has the one may look, who has the other may also touch the views.
class AccessKeys {
 public:
  static constexpr const char* FILE_NAME = "web-keys";

  /// Reads the keys from the file in `home`; makes new ones and keeps them, for the owner only, when
  /// there are none. Throws HostError when none can be made.
  explicit AccessKeys(const std::string& home);

  const std::string& GetLookKey() const { return lookKey; }
  const std::string& GetControlKey() const { return controlKey; }
  /// Why the keys are good for this run only; empty when they are kept.
  const std::string& GetLoss() const { return loss; }

  /// NONE for any other text. Takes as long for a wrong key as for a right one.
  Role FindRole(std::string_view key) const;

 private:
  std::string lookKey;
  std::string controlKey;
  std::string loss;
};

}  // namespace host
