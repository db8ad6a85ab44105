// SPDX-License-Identifier: MIT
// The table that maps models to packages, as getPackageName() reads it.
#include <gtest/gtest.h>

#include "tests/monitor/name_table_fixture.h"

namespace {

using namespace kovtest;

TEST_F(NameTable, NoFileGivesNoPackageForEveryModel) {
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
  EXPECT_EQ(packageOf(""), "noPackage");
}

TEST_F(NameTable, MissingFolderGivesNoPackage) {
  std::filesystem::remove_all(jvm.root() / "ORVA" / "Lumora5" / "Data");
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(NameTable, FindsThePackageOfAModel) {
  write(table(package("Alpha", model("L5-X240") + model("L5-X241")) +
              package("Beta", model("L5-M100"))));
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
  EXPECT_EQ(packageOf("L5-X241"), "Alpha");
  EXPECT_EQ(packageOf("L5-M100"), "Beta");
}

TEST_F(NameTable, UnknownModelGivesNoPackage) {
  write(table(package("Alpha", model("L5-X240"))));
  EXPECT_EQ(packageOf("L5-X24"), "noPackage");
  EXPECT_EQ(packageOf("L5-X2400"), "noPackage");
}

TEST_F(NameTable, ModelDifferingOnlyInLetterCaseDoesNotMatch) {
  write(table(package("Alpha", model("L5-X240"))));
  EXPECT_EQ(packageOf("l5-x240"), "noPackage");
}

TEST_F(NameTable, LaterPackageListingTheSameModelWins) {
  write(table(package("First", model("L5-X240")) + package("Second", model("L5-X240")) +
              package("Third", model("L5-M100"))));
  EXPECT_EQ(packageOf("L5-X240"), "Second");
}

TEST_F(NameTable, ModelTwiceInOnePackageIsThatPackage) {
  write(table(package("Alpha", model("L5-X240") + model("L5-X240"))));
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
}

TEST_F(NameTable, LaterPackageWithoutNameWinsTooAndIsEmpty) {
  write(table(package("First", model("L5-X240")) + "<PackageInfo>" + model("L5-X240") +
              "</PackageInfo>"));
  EXPECT_EQ(packageOf("L5-X240"), "");
}

TEST_F(NameTable, PackageInfoWithoutPackageNameGivesTheEmptyName) {
  write(table("<PackageInfo>" + model("L5-X240") + "</PackageInfo>"));
  EXPECT_EQ(packageOf("L5-X240"), "");
}

TEST_F(NameTable, PackageNameWithoutTextGivesTheEmptyName) {
  write(table("<PackageInfo><PackageName/>" + model("a") + "</PackageInfo>" +
              "<PackageInfo><PackageName></PackageName>" + model("b") + "</PackageInfo>" +
              "<PackageInfo><PackageName>   </PackageName>" + model("c") + "</PackageInfo>" +
              "<PackageInfo><PackageName><b>x</b></PackageName>" + model("d") + "</PackageInfo>"));
  for (const char* name : {"a", "b", "c", "d"}) EXPECT_EQ(packageOf(name), "") << name;
}

TEST_F(NameTable, ModelInfoWithoutModelNameListsTheEmptyModel) {
  write(table(package("Alpha", "<ModelInfo/>")));
  EXPECT_EQ(packageOf(""), "Alpha");
  write(table(package("Beta", "<ModelInfo><ModelName></ModelName></ModelInfo>")));
  EXPECT_EQ(packageOf(""), "Beta");
}

TEST_F(NameTable, ModelThatIsNullInJavaIsTheEmptyModel) {
  write(table(package("Alpha", "<ModelInfo/>")));
  objects.monitor->setField("model", nullptr);
  jvm->script(kLibraryClass, "getMonitor", fakejvm::returns(objects.monitor));
  EXPECT_EQ(lumora::kov::KovMonitorManager::get().getMonitorByName("", "").getPackageName(),
            "Alpha");
}

TEST_F(NameTable, RootElementOfAnotherNameGivesNoPackage) {
  write("<MonitorName>" + package("Alpha", model("L5-X240")) + "</MonitorName>");
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
  write("<root>" + table("").substr(39) + "</root>");
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(NameTable, RootElementIsLookedForByNameAmongItsSiblings) {
  write("<Other/><KovMonitorName>" + package("Alpha", model("L5-X240")) +
        "</KovMonitorName><KovMonitorName>" + package("Beta", model("L5-X240")) +
        "</KovMonitorName>");
  EXPECT_EQ(packageOf("L5-X240"), "Alpha") << "the first of that name is used";
}

TEST_F(NameTable, FirstPackageNameAndFirstModelNameAreUsed) {
  write(
      table("<PackageInfo><PackageName>A</PackageName><PackageName>B</PackageName>"
            "<ModelInfo><ModelName>m</ModelName><ModelName>n</ModelName></ModelInfo>"
            "</PackageInfo>"));
  EXPECT_EQ(packageOf("m"), "A");
  EXPECT_EQ(packageOf("n"), "noPackage");
}

TEST_F(NameTable, PackageNameMayFollowItsModels) {
  write(table("<PackageInfo>" + model("m") + "<PackageName>A</PackageName></PackageInfo>"));
  EXPECT_EQ(packageOf("m"), "A");
}

TEST_F(NameTable, ElementNamesAreComparedExactly) {
  write(table("<packageInfo><PackageName>A</PackageName>" + model("m") + "</packageInfo>" +
              "<PackageInfo><packagename>B</packagename><ModelInfo><modelName>n</modelName>"
              "</ModelInfo>" +
              model("o") + "</PackageInfo>"));
  EXPECT_EQ(packageOf("m"), "noPackage");
  EXPECT_EQ(packageOf("n"), "noPackage");
  EXPECT_EQ(packageOf("o"), "");
}

TEST_F(NameTable, OtherElementsAndAttributesAreIgnored) {
  write(
      table("<Note>x</Note><PackageInfo name='X'><Extra/><PackageName lang='de'>A</PackageName>"
            "<ModelInfo ModelName='z'><Extra>y</Extra><ModelName id='1'>m</ModelName>"
            "</ModelInfo></PackageInfo><ModelInfo><ModelName>loose</ModelName></ModelInfo>"));
  EXPECT_EQ(packageOf("m"), "A");
  EXPECT_EQ(packageOf("z"), "noPackage");
  EXPECT_EQ(packageOf("y"), "noPackage");
  EXPECT_EQ(packageOf("loose"), "noPackage");
}

TEST_F(NameTable, TextsMayBeCDataEntitiesAndBehindComments) {
  write(table(package("<![CDATA[A & <B>]]>", model("<![CDATA[L5-X240]]>")) +
              package("C &amp; D", model("&lt;m&gt;")) +
              package("<!-- note -->E", model("<!-- note -->n"))));
  EXPECT_EQ(packageOf("L5-X240"), "A & <B>");
  EXPECT_EQ(packageOf("<m>"), "C & D");
  EXPECT_EQ(packageOf("n"), "E");
}

TEST_F(NameTable, TextsAreUtf8AndABeginningMarkIsSkipped) {
  write("\xEF\xBB\xBF" + table(package("Gr\xC3\xBC\xC3\x9F", model("\xE6\x97\xA5"))));
  EXPECT_EQ(packageOf("\xE6\x97\xA5"), "Gr\xC3\xBC\xC3\x9F");
}

TEST_F(NameTable, WhiteSpaceInsideATextCounts) {
  write(table(package(" A ", model(" m "))));
  EXPECT_EQ(packageOf(" m "), " A ");
  EXPECT_EQ(packageOf("m"), "noPackage");
}

TEST_F(NameTable, MalformedFileGivesNoPackageForEveryModel) {
  const std::string good = table(package("Alpha", model("L5-X240")));
  for (const std::string& text :
       {std::string(), std::string("no markup"), good.substr(0, good.size() - 5),
        std::string("<KovMonitorName a=b/>"), std::string(1, '\0') + good,
        table(package("Alpha", model("L5-X240") + "</Model>")), std::string("<KovMonitorName>")}) {
    write(text);
    EXPECT_EQ(packageOf("L5-X240"), "noPackage") << text;
  }
}

// The table itself is whole.
TEST_F(NameTable, ErrorBehindTheTableGivesNoPackage) {
  const std::string good = table(package("Alpha", model("L5-X240")));
  for (const char* rest : {"<x", "<x><y></x>", "<!-- ", "<![CDATA["}) {
    write(good + rest);
    EXPECT_EQ(packageOf("L5-X240"), "noPackage") << rest;
  }
  write(good + "<x/><!-- -->\n");
  EXPECT_EQ(packageOf("L5-X240"), "Alpha") << "what follows is in order";
}

TEST_F(NameTable, FileWithoutAnElementGivesNoPackage) {
  for (const char* text : {"", " \n", "\xEF\xBB\xBF", "<!-- nothing -->"}) {
    write(text);
    EXPECT_EQ(packageOf("L5-X240"), "noPackage") << text;
  }
}

// As a C text: whatever follows has never been looked at.
TEST_F(NameTable, FileEndsAtItsFirstNul) {
  const std::string good = table(package("Alpha", model("L5-X240")));
  write(good + std::string(1, '\0') + "<x");
  EXPECT_EQ(packageOf("L5-X240"), "Alpha");
  write(good.substr(0, 60) + std::string(1, '\0') + good.substr(60));
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(NameTable, TooDeeplyNestedFileGivesNoPackage) {
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<a>";
  for (int i = 0; i < 100000; ++i) deep += "</a>";
  write(table(package("Alpha", model("L5-X240")) + deep));
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(NameTable, DirectoryOfThatNameGivesNoPackage) {
  std::filesystem::create_directory(file);
  EXPECT_EQ(packageOf("L5-X240"), "noPackage");
}

TEST_F(NameTable, LargeTableIsRead) {
  std::string models;
  for (int i = 0; i < 20000; ++i) models += model(std::string("M").append(std::to_string(i)));
  write(table(package("Large", models)));
  EXPECT_EQ(packageOf("M0"), "Large");
  EXPECT_EQ(packageOf("M19999"), "Large");
  EXPECT_EQ(packageOf("M20000"), "noPackage");
}

TEST_F(NameTable, EditsShowWithoutARestart) {
  const lumora::Monitor monitor = handle();
  EXPECT_EQ(monitor.getPackageName(), "noPackage");
  write(table(package("Alpha", model("L5-X240"))));
  EXPECT_EQ(monitor.getPackageName(), "Alpha");
  write(table(package("Beta", model("L5-X240"))));
  EXPECT_EQ(monitor.getPackageName(), "Beta");
  std::filesystem::remove(file);
  EXPECT_EQ(monitor.getPackageName(), "noPackage");
}

TEST_F(NameTable, JavaExceptionOfGetModelPropagates) {
  write(table(package("Alpha", model("L5-X240"))));
  jvm->script(objects.monitor, "getModel", fakejvm::throws("java/io/IOException", "lost"));
  const lumora::Monitor monitor = handle();
  EXPECT_EQ(javaExceptionOf([&] { monitor.getPackageName(); }), "java.io.IOException: lost");
}

}  // namespace
