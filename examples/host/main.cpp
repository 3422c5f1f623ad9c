// A host in C++: one control on a form without a screen. Give it a data directory and a text; it
// prints the catalog numbers that the clerk would see.

#include <keyscout/keyscout.h>

#include <iostream>

using namespace keyscout;

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: example_host DIRECTORY TEXT\n";
    return 2;
  }

  // What the component asks of the world around it.
  PosixFiles files;
  SilentMessageBox messageBox;
  LocalPlatform platform{files, messageBox};

  RWKeyscoutController controller{platform};
  controller.setKeyscoutDirectory(fromUtf8(argv[1]));
  controller.setKeyscoutIndexFile(u"catindex.txt");
  controller.setCatalogNumbersDownloadFile(u"catalog.txt");
  try {
    if (!controller.init()) {
      std::cerr << "the catalog data could not be loaded\n";
      return 1;
    }
  } catch (const Error& refusal) {
    std::cerr << refusal.what() << '\n';
    return 1;
  }
  controller.setKeyscoutEnabled(True);

  MemoryForm form;
  const auto surface = form.addSurface();
  keyscoutControlEvents events;  // override what the host cares for
  keyscoutControl control{platform, *surface, events};

  form.moveFocus(*surface, FocusPlace::textBox);
  for (const char16_t character : fromUtf8(argv[2])) form.type(character);
  if (const auto list = surface->listView())
    for (const String& entry : list->entries) std::cout << toUtf8(entry) << '\n';
  if (messageBox.wasShown()) {
    std::cerr << "the lookup failed\n";
    return 1;
  }
}
