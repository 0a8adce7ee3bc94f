// A request as its answer needs it.
#pragma once

#include <microhttpd.h>

#include <string>

#include "web/Client.h"

namespace host {

class Request {
 public:
  Request(MHD_Connection* connection, std::string method, std::string path)
      : connection(connection), method(std::move(method)), path(std::move(path)) {}

  const std::string& GetMethod() const { return method; }
  /// Without its query.
  const std::string& GetPath() const { return path; }
  /// Empty when it is missing.
  std::string GetHeader(const char* name) const;
  int CountHeaders(const char* name) const;
  /// Value of the query; empty when it is missing.
  std::string GetArgument(const char* name) const;
  /// Empty when it is missing.
  std::string GetCookie(const std::string& name) const;
  Client& GetClient() const;

  /// Of a POST, once it is complete.
  std::string body;

 private:
  std::string Get(MHD_ValueKind kind, const char* name) const;

  MHD_Connection* const connection;
  const std::string method;
  const std::string path;
};

}  // namespace host
