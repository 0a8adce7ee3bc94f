#include "web/Request.h"

#include <strings.h>

#include <utility>

namespace host {

namespace {

/// Counts the headers of one name.
struct HeaderCount {
  const char* name;
  int count = 0;
};

MHD_Result CountHeader(void* count, MHD_ValueKind /*kind*/, const char* key,
                       const char* /*value*/) {
  auto& headers = *static_cast<HeaderCount*>(count);
  headers.count += strcasecmp(key, headers.name) == 0 ? 1 : 0;
  return MHD_YES;
}

}  // namespace

std::string Request::GetHeader(const char* name) const {
  return Get(MHD_HEADER_KIND, name);
}

int Request::CountHeaders(const char* name) const {
  HeaderCount headers = {name};
  MHD_get_connection_values(connection, MHD_HEADER_KIND, CountHeader, &headers);
  return headers.count;
}

std::string Request::GetArgument(const char* name) const {
  return Get(MHD_GET_ARGUMENT_KIND, name);
}

std::string Request::GetCookie(const std::string& name) const {
  return Get(MHD_COOKIE_KIND, name.c_str());
}

Client& Request::GetClient() const {
  const MHD_ConnectionInfo* const info =
      MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT);
  return *static_cast<Client*>(info->socket_context);
}

std::string Request::Get(MHD_ValueKind kind, const char* name) const {
  const char* const value = MHD_lookup_connection_value(connection, kind, name);
  return value == nullptr ? "" : value;
}

}  // namespace host
