// A template of position reports, filled in from a position.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "TryInput.h"
#include "gps/FixRecord.h"
#include "sms/SmsReporter.h"

void TryInput(const unsigned char* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  ferolin::FixRecord fix;
  fix.ParseSentence(input.ConsumeRandomLengthString(200).c_str());
  ferolin::SmsReporter reporter(fix);
  const std::string numbers = input.ConsumeRandomLengthString(100);
  const ferolin::WideString address(numbers.begin(), numbers.end());
  reporter.SetParams(address, input.ConsumeRemainingBytesAsString(), 1, true, false);
  reporter.GetAddress();
  reporter.BuildMessage();
  reporter.Tick();
}
