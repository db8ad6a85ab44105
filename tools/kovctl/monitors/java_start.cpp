// SPDX-License-Identifier: MIT
#include "monitors/java_start.h"

#include "doctor/plugin_layout.h"
#include "system/files.h"

namespace kovctl {
namespace {

std::string whatIsMissing() {
  const PluginLayout layout = PluginLayout::find();
  if (!sys::isFolder(layout.plugins)) return "the plug-in folder is missing: " + layout.plugins;
  if (!sys::exists(layout.runtimeLibrary)) {
    return "the Java runtime is missing: " + layout.runtimeLibrary;
  }
  return "the Java runtime cannot be started: " + layout.runtimeLibrary;
}

bool isCommunication(const std::string& className, const std::string& message) {
  return (className == "java.io.IOException" ||
          className == "com.orva.dt.commons.resourceman.ResourceException") &&
         message.find("Error sending data") != std::string::npos;
}

}  // namespace

void startJava() try { lumora::kov::java::Env(); } catch (const std::runtime_error&) {
  throw Failure(ExitCode::kRuntime, whatIsMissing(), {"\"kovctl doctor\" finds out why."});
}

ExitCode exitCodeOf(const lumora::kov::java::JavaException& exception) {
  const std::string& name = exception.getClassName();
  // The plug-in's jars lack a class or a member: an installation problem, not a monitor's.
  if (name == "java.lang.NoSuchMethodError" || name == "java.lang.NoClassDefFoundError" ||
      name == "java.lang.ClassNotFoundException") {
    return ExitCode::kRuntime;
  }
  return isCommunication(name, exception.what()) ? ExitCode::kCommunication : ExitCode::kJava;
}

ExitCode exitCodeOf(OmError error) {
  if (error >= 0) return ExitCode::kOk;
  return error == OM_ERR_COMMUNICATION ? ExitCode::kCommunication : ExitCode::kJava;
}

Failure asFailure(const std::exception& reason) {
  if (const auto failure = dynamic_cast<const Failure*>(&reason)) return *failure;
  const auto java = dynamic_cast<const lumora::kov::java::JavaException*>(&reason);
  if (java != nullptr) return Failure(exitCodeOf(*java), textOf(*java));
  // What the monitor search says: "Monitor search error: Timeout.", "Can not find monitor".
  if (dynamic_cast<const std::logic_error*>(&reason) != nullptr) {
    return Failure(ExitCode::kCommunication, reason.what());
  }
  return Failure(ExitCode::kJava, reason.what());
}

const char* nameOf(OmError error) {
  switch (error) {
    case OM_OK:
      return "OM_OK";
    case OM_ERR_JAVA:
      return "OM_ERR_JAVA";
    case OM_ERR_CANCELED:
      return "OM_ERR_CANCELED";
    case OM_ERR_COMMUNICATION:
      return "OM_ERR_COMMUNICATION";
  }
  return "OM_ERR_UNKNOWN";
}

std::string textOf(const lumora::kov::java::JavaException& exception) {
  const std::string message = exception.what();
  return message.empty() ? exception.getClassName() : exception.getClassName() + ": " + message;
}

}  // namespace kovctl
