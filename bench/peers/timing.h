// What the programs around other parsers share: the recording, the clock and the result.
#pragma once

#include <stdio.h>
#include <stdlib.h>
#include <sys/resource.h>

struct recording {
  char* bytes;
  size_t size;
};

static struct recording load(const char* path) {
  struct recording loaded = {NULL, 0};
  FILE* file = fopen(path, "rb");
  if (file == NULL || fseek(file, 0, SEEK_END) != 0) {
    perror(path);
    exit(1);
  }
  loaded.size = (size_t)ftell(file);
  rewind(file);
  loaded.bytes = malloc(loaded.size + 1);
  if (loaded.bytes == NULL || fread(loaded.bytes, 1, loaded.size, file) != loaded.size) {
    perror(path);
    exit(1);
  }
  loaded.bytes[loaded.size] = 0;
  fclose(file);
  return loaded;
}

static size_t count_sentences(const struct recording* drive) {
  size_t count = 0;
  for (size_t i = 0; i < drive->size; ++i) {
    count += drive->bytes[i] == '$';
  }
  return count;
}

static double cpu_seconds(void) {
  struct rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  return (double)usage.ru_utime.tv_sec + (double)usage.ru_utime.tv_usec * 1e-6;
}

/// Parses the whole recording; returns what was found, so that nothing can be left out.
typedef double (*parse_all)(const struct recording* drive);

/// Prints nanoseconds a sentence, the best of several passes.
static int measure(int count, char** arguments, parse_all parse) {
  if (count != 2) {
    fprintf(stderr, "usage: %s RECORDING\n", arguments[0]);
    return 2;
  }
  const struct recording drive = load(arguments[1]);
  const size_t sentences = count_sentences(&drive);
  const size_t repeats = 1 + 200000 / sentences;
  double best = 1e9;
  double found = 0;
  for (int pass = 0; pass < 7; ++pass) {
    const double start = cpu_seconds();
    for (size_t repeat = 0; repeat < repeats; ++repeat) {
      found += parse(&drive);
    }
    const double took = cpu_seconds() - start;
    best = took < best ? took : best;
  }
  fprintf(stderr, "sum of all speeds: %.1f\n", found);
  printf("%.1f\n", best * 1e9 / (double)(sentences * repeats));
  free(drive.bytes);
  return 0;
}
