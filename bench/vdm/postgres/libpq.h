#pragma once

#include <libpq-fe.h>

#include "base/result.h"

namespace vanzet::vdm {

/// The functions of PostgreSQL's client library that the stores use. The library is loaded by the first store
/// on a server: other commands do without it, and it need not be installed for them.
struct Libpq {
  decltype(&PQconninfoParse) conninfoParse;
  decltype(&PQconninfoFree) conninfoFree;
  decltype(&PQconnectdbParams) connectdbParams;
  decltype(&PQfinish) finish;
  decltype(&PQreset) reset;
  decltype(&PQsetErrorVerbosity) setErrorVerbosity;
  decltype(&PQstatus) status;
  decltype(&PQerrorMessage) errorMessage;
  decltype(&PQhost) host;
  decltype(&PQport) port;
  decltype(&PQdb) db;
  decltype(&PQuser) user;
  decltype(&PQserverVersion) serverVersion;
  decltype(&PQparameterStatus) parameterStatus;
  decltype(&PQsetNoticeProcessor) setNoticeProcessor;
  decltype(&PQenterPipelineMode) enterPipelineMode;
  decltype(&PQpipelineSync) pipelineSync;
  decltype(&PQsendQueryParams) sendQueryParams;
  decltype(&PQgetResult) getResult;
  decltype(&PQclear) clear;
  decltype(&PQresultStatus) resultStatus;
  decltype(&PQresultErrorField) resultErrorField;
  decltype(&PQcmdStatus) cmdStatus;
  decltype(&PQntuples) ntuples;
  decltype(&PQgetisnull) getisnull;
  decltype(&PQgetlength) getlength;
  decltype(&PQgetvalue) getvalue;
  decltype(&PQsocket) socket;
  decltype(&PQconsumeInput) consumeInput;
  decltype(&PQnotifies) notifies;
  decltype(&PQfreemem) freemem;
};

/// The library, which stays loaded. Fails when it is not installed, or older than version 14.
Result<const Libpq*> LoadLibpq();

}  // namespace vanzet::vdm
