#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace talmo::test {

/// A script of the bundle, run over a bundle of empty files with programs that only write down what
/// they were asked.
class BundleScriptTest : public testing::Test {
 protected:
  using Variables = std::vector<std::string>;

  BundleScriptTest();

  const std::filesystem::path& folder() const { return folder_.path(); }
  std::filesystem::path app() const { return folder() / "a folder" / "Talmo.app"; }
  std::filesystem::path frameworks() const { return app() / "Contents" / "Frameworks"; }

  /// Makes an empty file and the folders above it.
  static void makeFile(const std::filesystem::path& path);

  /// A program that writes its arguments down, then runs the given shell commands.
  std::string program(const std::string& name, const std::string& commands = "") const;

  /// Runs the script of that name, with variables such as "IDENTITY=-". The exit status.
  int run(const std::string& script, const Variables& variables);

  /// What the script said when it ran.
  const std::string& output() const { return output_; }

  /// The arguments of each call of a program, in the order of the calls.
  std::vector<std::vector<std::string>> calls() const;

 private:
  std::filesystem::path record() const { return folder() / "calls"; }

  TemporaryFolder folder_;
  std::string output_;
};

}  // namespace talmo::test
