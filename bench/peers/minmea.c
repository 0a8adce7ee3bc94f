// Checks and parses GGA, GLL, GSA, GSV, RMC and VTG sentences with minmea, a line at a time.
#include <minmea.h>
#include <string.h>

#include "timing.h"

static double parse_line(const char* line) {
  union {
    struct minmea_sentence_rmc rmc;
    struct minmea_sentence_gga gga;
    struct minmea_sentence_gll gll;
    struct minmea_sentence_gsa gsa;
    struct minmea_sentence_gsv gsv;
    struct minmea_sentence_vtg vtg;
  } frame;
  switch (minmea_sentence_id(line, false)) {
    case MINMEA_SENTENCE_RMC:
      return minmea_parse_rmc(&frame.rmc, line) ? minmea_tofloat(&frame.rmc.speed)
                                                 + minmea_tocoord(&frame.rmc.latitude)
                                                 + minmea_tocoord(&frame.rmc.longitude) : 0;
    case MINMEA_SENTENCE_GGA:
      return minmea_parse_gga(&frame.gga, line) ? minmea_tofloat(&frame.gga.altitude) : 0;
    case MINMEA_SENTENCE_GLL:
      return minmea_parse_gll(&frame.gll, line) ? minmea_tocoord(&frame.gll.latitude) : 0;
    case MINMEA_SENTENCE_GSA:
      return minmea_parse_gsa(&frame.gsa, line) ? minmea_tofloat(&frame.gsa.hdop) : 0;
    case MINMEA_SENTENCE_GSV:
      return minmea_parse_gsv(&frame.gsv, line) ? frame.gsv.sats[0].nr : 0;
    case MINMEA_SENTENCE_VTG:
      return minmea_parse_vtg(&frame.vtg, line) ? minmea_tofloat(&frame.vtg.speed_knots) : 0;
    default:
      return 0;
  }
}

static double parse(const struct recording* drive) {
  char line[256];
  double sum = 0;
  const char* end = drive->bytes + drive->size;
  for (const char* start = drive->bytes; start < end;) {
    const char* stop = memchr(start, '\n', (size_t)(end - start));
    stop = stop == NULL ? end : stop;
    const size_t length = (size_t)(stop - start);
    if (length < sizeof line) {
      memcpy(line, start, length);
      line[length] = 0;
      const double found = parse_line(line);
      sum += found == found ? found : 0;
    }
    start = stop + 1;
  }
  return sum;
}

int main(int count, char** arguments) {
  return measure(count, arguments, parse);
}
