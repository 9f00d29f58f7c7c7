#include "web/server/responses.h"

#include <initializer_list>
#include <string_view>

namespace varek {

namespace {

constexpr char kLineEnd[] = "\r\n";

std::string Block(std::initializer_list<std::string_view> lines) {
  std::string block;
  for (const std::string_view line : lines) {
    block += line;
    block += kLineEnd;
  }
  return block;
}

const std::string& HtmlHeader() {
  static const std::string block = Block({
      "HTTP/1.1 200 OK",
      "Cache-Control: private",
      "Content-Type: text/html;",
      "Pragma: no -cache",
  });
  return block;
}

const std::string& GifHeader() {
  static const std::string block = Block({
      "HTTP/1.0 200 OK",
      "Server: Web Server 1.0",
      "Date: Thu, 10 May 2001",
      "23:28:00 +0800 (CST)",
      "media-type: image/gif",
      "MIME-Version: 1.0",
  });
  return block;
}

const std::string& BmpHeader() {
  static const std::string block = Block({
      "HTTP/1.1 200 OK",
      "Date: Sat, 10 Jun 2006",
      "11:01:58 GMT",
      "Server:",
      "SovranoWebServer/1.1.5",
      "Expires: Sat, 10 Jun 2006",
      "11:01:58 GMT",
      "Pragma: no -cache",
      "media-type: image/x-MS-bmp",
      "Pragma: no -cache",
      "MIME-Version: 1.0",
  });
  return block;
}

}  // namespace

const std::string& BadRequest() {
  static const std::string response = Block({
      "HTTP/1.1 400 Bad Request",
      "Date: Wed, 14 Jun 2006 09:45:28 GMT",
      "Connection:Close",
      "Content-Type: text/html",
      "",
  });
  return response;
}

std::string PageResponse(const std::string& text) {
  return HtmlHeader() + kLineEnd + text + kLineEnd;
}

std::string FileHeader(const std::string& name) {
  if (name.ends_with("gif")) return GifHeader() + kLineEnd;
  if (name.ends_with("bmp")) return BmpHeader() + kLineEnd;
  return {};
}

}  // namespace varek
