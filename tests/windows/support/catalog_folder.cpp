#include "support/catalog_folder.h"

#include <filesystem>
#include <fstream>

namespace keyscout {
namespace {

std::string padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

std::string number(const char* family, int i) { return family + std::to_string(100 + i); }
std::string brand(int i) { return i % 2 == 0 ? "ACME" : "BOLT"; }

std::string table(const char* family) {
  std::string lines;
  for (int i = 0; i < 20; ++i)
    lines += padded(std::to_string(i + 1), 10) + padded(number(family, i), 60) + brand(i) + "\r\n";
  return lines;
}

std::string indexLine(const char* tableNumber, const char* family) {
  return padded(tableNumber, 10) + padded("1", 10) + padded(number(family, 0), 60) +
         padded(brand(0), 50) + padded("20", 10) + padded(number(family, 19), 60) +
         padded(brand(19), 50) + "\r\n";
}

}  // namespace

CatalogFolder::CatalogFolder() {
  write(L"catindex.txt", indexLine("0", "AB-") + indexLine("1", "CD-"));
  write(L"0.txt", table("AB-"));
  write(L"1.txt", table("CD-"));
  write(L"brandinfo.txt", "ACME\r\nBOLT\r\n");
  write(L"catcontrol.txt", "READY\r\n");
  write(L"catalog.txt", "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]\r\n");
}

void CatalogFolder::write(const wchar_t* name, const std::string& content) {
  std::ofstream{folder_.path() / name, std::ios::binary} << content;
}

void CatalogFolder::remove(const wchar_t* name) { std::filesystem::remove(folder_.path() / name); }

}  // namespace keyscout
