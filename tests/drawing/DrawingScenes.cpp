// Draws many small scenes and all views, so that homes can be compared. All homes build this
// source.

#include <cstdio>
#include <set>
#include <string>
#include <string_view>

#include "Album.h"
#include "Scene.h"

namespace {

void DrawAll(drawing::Album& album) {
  for (const auto makeFamilies :
       {&drawing::LineFamilies, &drawing::ShapeFamilies, &drawing::BlitFamilies,
        &drawing::ViewFamilies, &drawing::TextFamilies}) {
    for (const drawing::Family& family : makeFamilies()) {
      for (int index = 0; index < family.count; ++index) {
        drawing::Scene scene(album, family.name, index);
        family.draw(scene);
      }
    }
  }
}

int Usage() {
  std::fputs(
      "usage: drawing-scenes [--spoil <picture>] <folder> [<picture>...]\n"
      "\n"
      "Draws all scenes and lists them in <folder>/scenes.txt. The pixels of the pictures named go "
      "into the\n"
      "folder too. --spoil changes one pixel of a picture, to prove that a comparison notices.\n",
      stderr);
  return 2;
}

}  // namespace

int main(int count, char** arguments) {
  int next = 1;
  std::string spoilt;
  if (count > 2 && std::string_view(arguments[1]) == "--spoil") {
    spoilt = arguments[2];
    next = 3;
  }
  if (next >= count)
    return Usage();
  const std::string folder = arguments[next++];
  drawing::Album album(folder, std::set<std::string>(arguments + next, arguments + count), spoilt);
  if (!album.IsOpen()) {
    std::fprintf(stderr, "drawing-scenes: cannot write to %s\n", folder.c_str());
    return 1;
  }
  DrawAll(album);
  return 0;
}
