#include "vdm/postgres/libpq.h"

#include <dlfcn.h>

#include <optional>
#include <string>

namespace vanzet::vdm {
namespace {

constexpr const char* kLibrary = "libpq.so.5";

template <class Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

bool FindConnecting(void* library, Libpq& pq) {
  return Find(library, "PQconninfoParse", pq.conninfoParse) &&
         Find(library, "PQconninfoFree", pq.conninfoFree) &&
         Find(library, "PQconnectdbParams", pq.connectdbParams) && Find(library, "PQfinish", pq.finish) &&
         Find(library, "PQreset", pq.reset) && Find(library, "PQsetErrorVerbosity", pq.setErrorVerbosity) &&
         Find(library, "PQstatus", pq.status) && Find(library, "PQerrorMessage", pq.errorMessage) &&
         Find(library, "PQhost", pq.host) && Find(library, "PQport", pq.port) &&
         Find(library, "PQdb", pq.db) && Find(library, "PQuser", pq.user) &&
         Find(library, "PQserverVersion", pq.serverVersion) &&
         Find(library, "PQparameterStatus", pq.parameterStatus) &&
         Find(library, "PQsetNoticeProcessor", pq.setNoticeProcessor);
}

bool FindAsking(void* library, Libpq& pq) {
  return Find(library, "PQenterPipelineMode", pq.enterPipelineMode) &&
         Find(library, "PQpipelineSync", pq.pipelineSync) &&
         Find(library, "PQsendQueryParams", pq.sendQueryParams) &&
         Find(library, "PQgetResult", pq.getResult) && Find(library, "PQclear", pq.clear) &&
         Find(library, "PQresultStatus", pq.resultStatus) &&
         Find(library, "PQresultErrorField", pq.resultErrorField) &&
         Find(library, "PQcmdStatus", pq.cmdStatus) && Find(library, "PQntuples", pq.ntuples) &&
         Find(library, "PQgetisnull", pq.getisnull) && Find(library, "PQgetlength", pq.getlength) &&
         Find(library, "PQgetvalue", pq.getvalue) && Find(library, "PQsocket", pq.socket) &&
         Find(library, "PQconsumeInput", pq.consumeInput) && Find(library, "PQnotifies", pq.notifies) &&
         Find(library, "PQfreemem", pq.freemem);
}

Fault LoadingFault(const char* reason) {
  return {.text = std::string("a store on a PostgreSQL server needs libpq of version 14 or later: ") + reason,
          .file = kLibrary,
          .kind = FaultKind::kSystem};
}

Result<Libpq> Load() {
  void* const library = dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  Libpq pq = {};
  if (library != nullptr && FindConnecting(library, pq) && FindAsking(library, pq)) return pq;
  const char* const reason = dlerror();
  return LoadingFault(reason == nullptr ? "it cannot be loaded" : reason);
}

}  // namespace

Result<const Libpq*> LoadLibpq() {
  static const Result<Libpq> loaded = Load();
  if (!loaded) return loaded.fault();
  return &*loaded;
}

}  // namespace vanzet::vdm
