#include "sms/SmsReporter.h"

#include <string_view>

#include "base/CodePage.h"
#include "base/DeviceTime.h"
#include "base/Format.h"
#include "base/ModuleFunction.h"
#include "base/Number.h"
#include "gps/FixRecord.h"
#include "settings/IniFlag.h"
#include "settings/IniStore.h"

namespace ferolin {

namespace {

constexpr const char* SECTION = "SMS";

/// Replaces every occurrence, looking from the start again each time, so that a replacement that
/// completes a placeholder counts too.
void ReplaceAll(std::string& text, std::string_view placeholder, std::string_view value) {
  for (std::size_t found = text.find(placeholder); found != std::string::npos;
       found = text.find(placeholder)) {
    text.replace(found, placeholder.size(), value);
  }
}

std::string ValueOrNothing(const char* format, float value, float factor = 1.0F) {
  return IsMissing(value) ? std::string("N/A") : Format(format, value * factor);
}

/// Coordinates go out as degrees and minutes written as one decimal: 5530.5 becomes 55.305000.
constexpr float COORDINATE_FACTOR = 0.01F;

WideStringView TrimBlanks(WideStringView text) {
  const WideStringView blanks = TEXT(" \t");
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == WideStringView::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

SmsReporter::SmsReporter(const FixRecord& fixRecord)
    : library(LoadLibraryW(TEXT("Parlex.DLL"))), fix(fixRecord) {
  FindEntry(library, TEXT("SendParlex"), sendProc);
}

SmsReporter::~SmsReporter() {
  if (library != nullptr) {
    FreeLibrary(library);
  }
}

WideString SmsReporter::GetAddress() const {
  WideString address;
  for (const WideString& recipient : recipients) {
    if (!address.empty()) {
      address += ',';
    }
    address += recipient;
  }
  return address;
}

void SmsReporter::SetParams(WideStringView newAddress, std::string newText, int newInterval,
                            bool enable, bool onlyIfChanged) {
  SetAddress(newAddress);
  text = std::move(newText);
  interval = newInterval;
  enabled = enable;
  sendIfChanged = onlyIfChanged;
}

void SmsReporter::SetAddress(WideStringView address) {
  recipients.clear();
  while (!address.empty()) {
    const std::size_t comma = std::min(address.find(','), address.size());
    const WideStringView number = TrimBlanks(address.substr(0, comma));
    if (!number.empty()) {
      recipients.emplace_back(number);
    }
    address.remove_prefix(std::min(comma + 1, address.size()));
  }
}

void SmsReporter::LoadSettings(const IniStore& store) {
  const auto value = [&](const char* key) { return store.GetValue(key, SECTION); };
  const auto flag = [&](const char* key) { return FlagFrom(value(key)); };
  SetAddress(Widen(value("Address")));
  interval = ParseInt(value("Interval").c_str());
  sendIfChanged = flag("SendIfChanged");
  enabled = flag("Send");
  text = value("Text");
}

void SmsReporter::SaveSettings(IniStore& store) const {
  const auto save = [&](const char* key, std::string_view value) {
    store.SetValue(key, value, SECTION);
  };
  save("Address", Narrow(GetAddress()));
  save("Interval", Format("%i", interval));
  save("SendIfChanged", FlagText(sendIfChanged));
  save("Send", FlagText(enabled));
  save("Text", text);
}

SmsReport SmsReporter::MakeReport() const {
  return CanSend() ? SmsReport(sendProc, recipients, BuildMessage()) : SmsReport();
}

SmsReport SmsReporter::Tick() {
  if (!enabled || interval < 1) {
    return {};
  }
  const std::int64_t now = fix.GetLocalFileTime();
  const bool isDue = IsDue(now);
  lastTime = now;
  lastLongitude = fix.GetLongitude();
  lastLatitude = fix.GetLatitude();
  return isDue ? MakeReport() : SmsReport();
}

bool SmsReporter::IsDue(std::int64_t now) const {
  constexpr std::int64_t FILE_TIME_PER_MINUTE = 60 * FILE_TIME_PER_SECOND;
  if (lastTime == 0 || (now - lastTime) / FILE_TIME_PER_MINUTE < interval) {
    return false;
  }
  const bool changed = fix.GetLongitude() != lastLongitude || fix.GetLatitude() != lastLatitude;
  return changed || !sendIfChanged;
}

std::string SmsReporter::BuildMessage() const {
  std::string message = text;
  ReplaceAll(message, "%Latitude%", ValueOrNothing("%f", fix.GetLatitude(), COORDINATE_FACTOR));
  ReplaceAll(message, "%Longitude%", ValueOrNothing("%f", fix.GetLongitude(), COORDINATE_FACTOR));
  ReplaceAll(message, "%Altitude%", ValueOrNothing("%0.2f", fix.GetAltitude()));
  ReplaceAll(message, "%Speed%", ValueOrNothing("%0.1f", fix.GetSpeedKmh()));
  ReplaceAll(message, "%Azimuth%", ValueOrNothing("%0.0f", fix.GetCourse()));
  const SYSTEMTIME& time = fix.GetLocalTime();
  ReplaceAll(message, "%Time%", Format("%i:%i:%i", time.wHour, time.wMinute, time.wSecond));
  if (!IsMissing(fix.GetLatitude()) && !IsMissing(fix.GetLongitude())) {
    ReplaceAll(
        message, "%GoogleMaps%",
        Format("http://maps.google.com/m/local?q=%f,%f", fix.GetLatitude() * COORDINATE_FACTOR,
               fix.GetLongitude() * COORDINATE_FACTOR));
  }
  return message;
}

}  // namespace ferolin
