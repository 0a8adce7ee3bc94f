// A program of calls of all exports with arguments of all kinds, while both sources are read.
#include <fcntl.h>
#include <fuzzer/FuzzedDataProvider.h>
#include <gpsapi.h>
#include <handheld.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "FuzzedEngine.h"
#include "TryInput.h"

namespace {

/// A receiver at COM1, and the library of the GPS API.
class Sources {
 public:
  static Sources& Instance() {
    static Sources sources;
    return sources;
  }

  void Send(const std::string& bytes) const {
    static_cast<void>(write(terminal, bytes.data(), bytes.size()));
  }

  void SetPosition(const GPS_POSITION& position) const { setPosition(&position); }

 private:
  using SetPositionFunction = void (*)(const GPS_POSITION*);

  Sources() : terminal(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    grantpt(terminal);
    unlockpt(terminal);
    handheld::MapSerialPort("COM1:", ptsname(terminal));
    handheld::SetLibraryDirectory(SIBLINGS_FOLDER);
    const FARPROC found = GetProcAddressW(LoadLibraryW(TEXT("Dastrel.DLL")), TEXT("SetPosition"));
    setPosition = reinterpret_cast<SetPositionFunction>(reinterpret_cast<void (*)()>(found));
  }

  int terminal;
  SetPositionFunction setPosition;
};

/// The arguments and results of one call after the other.
class Arguments {
 public:
  Arguments(const unsigned char* data, std::size_t size, HWND engineWindow)
      : input(data, size), engineWindow(engineWindow) {}

  bool AreLeft() { return input.remaining_bytes() > 0; }

  int GetInt() {
    constexpr std::array EDGES = {INT_MIN, -9999, -1, 0, 1, 255, 256, INT_MAX};
    return input.ConsumeBool() ? input.PickValueInArray(EDGES)
                               : input.ConsumeIntegralInRange(-2, 500);
  }

  std::string GetBytes() { return input.ConsumeRandomLengthString(600); }

  /// Null at times. Lasts until the next call.
  const WCHAR* GetText() {
    const std::string bytes = GetBytes();
    texts.emplace_back(bytes.begin(), bytes.end());
    return input.ConsumeBool() ? texts.back().c_str() : nullptr;
  }

  /// A path that stays in the engine's folder.
  const WCHAR* GetPath() {
    std::string bytes = GetBytes();
    std::ranges::replace(bytes, '.', '_');
    texts.emplace_back(bytes.begin(), bytes.end());
    texts.back().insert(0, TEXT("\\Ferolin\\Tracks\\"));
    return texts.back().c_str();
  }

  HWND GetWindow() {
    const std::array windows = {engineWindow, HWND{}, reinterpret_cast<HWND>(1)};
    return input.PickValueInArray(windows);
  }

  /// A size, and a buffer of just that size: nothing may be written behind it.
  struct Buffer {
    std::vector<char> bytes;
    char* data() { return bytes.empty() ? nullptr : bytes.data(); }
    int size() const { return static_cast<int>(bytes.size()); }
  };
  Buffer GetBuffer() {
    return {std::vector<char>(input.ConsumeIntegralInRange<std::size_t>(0, 300))};
  }

  GPS_POSITION GetPosition() {
    GPS_POSITION position = {};
    input.ConsumeData(&position, sizeof position);
    return position;
  }

  std::size_t PickCall(std::size_t count) {
    texts.clear();
    texts.reserve(MAX_TEXTS);
    return input.ConsumeIntegralInRange<std::size_t>(0, count - 1);
  }

 private:
  static constexpr std::size_t MAX_TEXTS = 8;

  FuzzedDataProvider input;
  HWND engineWindow;
  std::vector<ferolin::WideString> texts;
};

using Call = void (*)(Arguments&);

template <auto FUNCTION>
void CallPlain(Arguments&) {
  FUNCTION();
}

template <auto FUNCTION>
void CallWithInt(Arguments& arguments) {
  FUNCTION(arguments.GetInt());
}

template <auto FUNCTION>
void CallWithFlag(Arguments& arguments) {
  FUNCTION(static_cast<DWORD>(arguments.GetInt()));
}

template <auto FUNCTION>
void CallWithBuffer(Arguments& arguments) {
  Arguments::Buffer buffer = arguments.GetBuffer();
  FUNCTION(buffer.data(), buffer.size());
}

/// These ask for a buffer that holds every name, value and state.
template <auto FUNCTION>
void CallWithIndexAndBuffer(Arguments& arguments) {
  const int index = arguments.GetInt();
  std::array<char, 256> buffer = {};
  FUNCTION(index, buffer.data(), static_cast<int>(buffer.size()));
}

template <auto FUNCTION>
void CallWithText(Arguments& arguments) {
  FUNCTION(arguments.GetText());
}

template <auto FUNCTION>
void CallWithWindow(Arguments& arguments) {
  FUNCTION(arguments.GetWindow());
}

template <auto FUNCTION>
void CallWithPoint(Arguments& arguments) {
  const HWND window = arguments.GetWindow();
  const int x = arguments.GetInt();
  FUNCTION(window, x, arguments.GetInt());
}

constexpr Call CALLS[] = {
    CallWithWindow<StartCallBack>,
    CallPlain<StopCallBack>,
    CallPlain<GetWndMessageID>,
    CallWithText<SetComPortName>,
    [](Arguments&) { SetComPortName(TEXT("COM1")); },
    CallWithBuffer<GetComPortName>,
    CallWithInt<SetComPortSpeed>,
    CallPlain<GetComPortSpeed>,
    CallWithFlag<SetUseGPSAPI>,
    CallPlain<IsUseGPSAPI>,
    CallPlain<GetSensorsCount>,
    CallWithIndexAndBuffer<GetSensorName>,
    CallWithIndexAndBuffer<GetSensorValue>,
    CallWithInt<ResetSensorValue>,
    CallWithInt<IsSensorSaveable>,
    CallWithIndexAndBuffer<GetSensorRegistryString>,
    [](Arguments& arguments) {
      const int index = arguments.GetInt();
      SetSensorRegistryString(index, arguments.GetText());
    },
    CallPlain<GetWidgetsCount>,
    CallWithIndexAndBuffer<GetWidgetName>,
    CallPlain<GetCurRenderWidget>,
    CallWithInt<SetCurRenderWidget>,
    CallPlain<GetRenderWindow>,
    CallWithWindow<SetRenderWindow>,
    CallPlain<GetInvertVert>,
    CallWithInt<SetInvertVert>,
    CallPlain<GetInvertHorz>,
    CallWithInt<SetInvertHorz>,
    CallPlain<GetInvertColor>,
    CallWithInt<SetInvertColor>,
    CallPlain<GetInvertOrient>,
    CallWithInt<SetInvertOrient>,
    CallWithPoint<OnClick>,
    CallPlain<OnDoubleClick>,
    CallWithPoint<OnMouseDown>,
    CallWithPoint<OnMouseMove>,
    CallWithPoint<OnMouseUp>,
    CallPlain<IsAlwaysTurnOn>,
    CallWithFlag<SetAlwaysTurnOn>,
    CallPlain<IsWriteKML>,
    CallWithInt<SetWriteKML>,
    CallWithBuffer<GetLogFolder>,
    [](Arguments& arguments) { SetLogFolder(arguments.GetPath()); },
    CallPlain<IsRussianLocale>,
    CallPlain<SendSMS>,
    CallPlain<IsSMSExist>,
    CallPlain<IsSMSEnabled>,
    CallPlain<IsSMSSendIfChanged>,
    CallPlain<GetSMSInterval>,
    CallWithBuffer<GetSMSText>,
    CallWithBuffer<GetSMSAddress>,
    [](Arguments& arguments) {
      const WCHAR* const address = arguments.GetText();
      const WCHAR* const text = arguments.GetText();
      const int interval = arguments.GetInt();
      const int isEnabled = arguments.GetInt();
      SetSMSParams(address, text, interval, isEnabled, arguments.GetInt());
    },
    CallPlain<GetSpeedEventsCount>,
    CallPlain<GetBeepOnZero>,
    CallWithInt<SetBeepOnZero>,
    CallWithInt<GetUseEventSound>,
    CallWithInt<GetEventSpeedLimit>,
    CallWithInt<GetEventSpeedInter>,
    [](Arguments& arguments) {
      const int index = arguments.GetInt();
      const int limit = arguments.GetInt();
      const int band = arguments.GetInt();
      SetSpeedEvent(index, limit, band, arguments.GetInt());
    },
    [](Arguments& arguments) {
      Arguments::Buffer buffer = arguments.GetBuffer();
      const WCHAR* const section = arguments.GetText();
      const WCHAR* const key = arguments.GetText();
      GetIniFileValue(buffer.data(), buffer.size(), section, key, arguments.GetText());
    },
    [](Arguments& arguments) {
      const WCHAR* const section = arguments.GetText();
      const WCHAR* const key = arguments.GetText();
      const WCHAR* const value = arguments.GetText();
      SetIniFileValue(section, key, value, arguments.GetText());
    },
    // What happens meanwhile.
    [](Arguments& arguments) { Sources::Instance().Send(arguments.GetBytes()); },
    [](Arguments& arguments) { Sources::Instance().SetPosition(arguments.GetPosition()); },
    [](Arguments&) { Sleep(1500); },
};

}  // namespace

void TryInput(const unsigned char* data, std::size_t size) {
  constexpr int MAX_CALLS = 100;
  Sources::Instance();
  const fuzz::FuzzedEngine engine("");
  SetUseGPSAPI(0);
  SetComPortName(TEXT("COM1"));
  StartCallBack(engine.GetWindow());
  Arguments arguments(data, size, engine.GetWindow());
  for (int i = 0; i < MAX_CALLS && arguments.AreLeft(); ++i) {
    CALLS[arguments.PickCall(std::size(CALLS))](arguments);
  }
}
