#include "sheet/elements.h"

#include "base/number_text.h"
#include "base/xml_text.h"
#include "sheet/base64.h"

namespace vanzet::sheet {
namespace {

constexpr const char* kPolicy =
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data:; "
    "style-src 'unsafe-inline'; script-src 'unsafe-inline'\">\n";

}  // namespace

std::string Attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + EscapeXml(value) + "\"";
}

std::string Element(const std::string& name, std::string_view text, const std::string& attributes) {
  return "<" + name + attributes + ">" + EscapeXml(text) + "</" + name + ">";
}

std::string ImageOf(const Picture& picture, const std::string& attributes) {
  const bool isSvg = picture.format == Picture::Format::kSvg;
  const std::string size = "width:" + NumberText(picture.width, 5) +
                           "mm;aspect-ratio:" + NumberText(picture.width, 5) + "/" +
                           NumberText(picture.height, 5);
  return "<img" + attributes + Attribute("alt", picture.alternative) + Attribute("style", size) +
         " src=\"data:image/" + (isSvg ? "svg+xml" : "png") + ";base64," + Base64Of(picture.bytes) + "\">";
}

std::string PageHead(std::string_view language, std::string_view title, std::string_view style) {
  return "<!DOCTYPE html>\n<html" + Attribute("lang", language) + ">\n<head>\n<meta charset=\"utf-8\">\n" +
         kPolicy + "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n" +
         Element("title", title) + "\n<style>\n" + std::string(style) + "</style>\n</head>\n<body>\n";
}

}  // namespace vanzet::sheet
