#include "outputs/JsonOutput.h"

#include "outputs/JsonWriter.h"

namespace host {

void JsonOutput::Show(const Update& update) {
  output.Write(JsonUpdate(update, ReadFigures(engine)));
}

void JsonOutput::Finish(const Update& last, const Readouts& registry) {
  output.Write(JsonEnd(last, ReadFigures(engine), registry));
}

}  // namespace host
