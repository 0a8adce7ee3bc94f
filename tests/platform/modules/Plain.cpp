// Library without an entry function.
extern "C" int PlainAnswer() {
  return 42;
}
