// The build-time script compiler run as a build runs it: the C++ source it
// writes for a library and for a program, the dependency file that names every
// file the script read (with make's special characters escaped), and the exit
// status and message of each way it can fail.
#include <support/TempDir.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

struct ToolRun {
    int status;
    std::string output;
};

std::string Quote(const std::string& arg) {
    std::string out = "'";
    for (char c : arg)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

ToolRun Compile(const std::string& args) {
    std::string command = Quote(WIN_RC_TOOL) + " " + args + " 2>&1";
    FILE* pipe = ::popen(command.c_str(), "r");
    ToolRun run{-1, {}};
    if (!pipe)
        return run;
    char buffer[256];
    while (std::fgets(buffer, sizeof buffer, pipe))
        run.output += buffer;
    int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

std::string Slurp(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void Write(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

TEST(CompilerTool, WritesTheScriptAndItsIncludesAndNamesThemForMake) {
    // A directory whose name holds the characters make treats specially.
    fs::path dir = testing_support::TestOutputDir("win_rc") / "host dir#1$";
    fs::create_directories(dir);
    Write(dir / "ids.h", "#define IDS_HELLO 7\n");
    Write(dir / "app.rc",
          "#include \"ids.h\"\nSTRINGTABLE\nBEGIN\n    IDS_HELLO \"Hi \\\"there\\\"\"\nEND\n");
    fs::path source = dir / "out.cpp";
    fs::path depfile = dir / "out.d";

    ToolRun lib = Compile(Quote((dir / "app.rc").string()) + " " + Quote(source.string()) + " " +
                          Quote(depfile.string()) + " lib");
    ASSERT_EQ(lib.status, 0) << lib.output;
    std::string code = Slurp(source);
    // Both files go in, as bytes, under the names the run-time reader asks for.
    EXPECT_NE(code.find("{\"app.rc\", kFile0, "), std::string::npos) << code;
    EXPECT_NE(code.find("{\"ids.h\", kFile1, 20}"), std::string::npos) << code;
    // '#' is 35 and the include's first line starts with it.
    EXPECT_NE(code.find("kFile1[] = {\n    35,100,101,102,"), std::string::npos) << code;
    // A library finds its own module from an address inside it.
    EXPECT_NE(code.find("GetModuleHandleExW"), std::string::npos);
    EXPECT_NE(
        code.find("RegisterEmbeddedResourceScript(\n    ThisModule(), \"app.rc\", kFiles, 2)"),
        std::string::npos)
        << code;

    std::string deps = Slurp(depfile);
    std::string escapedDir = dir.parent_path().string() + "/host\\ dir\\#1$$";
    EXPECT_EQ(deps.substr(0, deps.find(':')),
              dir.parent_path().string() + "/host\\ dir\\#1$$/out.cpp");
    EXPECT_NE(deps.find(" \\\n  " + escapedDir + "/app.rc"), std::string::npos) << deps;
    EXPECT_NE(deps.find(" \\\n  " + escapedDir + "/ids.h\n"), std::string::npos) << deps;

    // A program is its own module.
    ToolRun exe = Compile(Quote((dir / "app.rc").string()) + " " + Quote(source.string()) + " " +
                          Quote(depfile.string()) + " exe");
    ASSERT_EQ(exe.status, 0) << exe.output;
    code = Slurp(source);
    EXPECT_NE(code.find("return GetModuleHandleW(nullptr);"), std::string::npos);
    EXPECT_EQ(code.find("GetModuleHandleExW"), std::string::npos);
}

TEST(CompilerTool, FailsWithAMessageAndWritesNothingWhenItCannot) {
    fs::path dir = testing_support::TestOutputDir("win_rc");
    Write(dir / "bad.rc", "STRINGTABLE\nBEGIN\n    1 \"open\nEND\n");
    Write(dir / "good.rc", "STRINGTABLE { 1 \"fine\" }\n");

    ToolRun usage = Compile("only-one-argument");
    EXPECT_EQ(usage.status, 2);
    EXPECT_NE(usage.output.find("usage: win_rc SCRIPT.rc OUT.cpp OUT.d exe|lib"),
              std::string::npos);

    ToolRun bad =
        Compile(Quote((dir / "bad.rc").string()) + " " + Quote((dir / "bad.cpp").string()) + " " +
                Quote((dir / "bad.d").string()) + " exe");
    EXPECT_EQ(bad.status, 1);
    EXPECT_NE(bad.output.find("bad.rc(3): unterminated string"), std::string::npos) << bad.output;
    EXPECT_FALSE(fs::exists(dir / "bad.cpp"));
    EXPECT_FALSE(fs::exists(dir / "bad.d"));

    ToolRun missing =
        Compile(Quote((dir / "none.rc").string()) + " " + Quote((dir / "none.cpp").string()) + " " +
                Quote((dir / "none.d").string()) + " exe");
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.output.find("none.rc"), std::string::npos) << missing.output;

    // The output's directory does not exist: the source cannot be written.
    fs::path nowhere = dir / "no such dir" / "out.cpp";
    ToolRun unwritable = Compile(Quote((dir / "good.rc").string()) + " " + Quote(nowhere.string()) +
                                 " " + Quote((dir / "good.d").string()) + " exe");
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_NE(unwritable.output.find("win_rc: cannot write " + nowhere.string()), std::string::npos)
        << unwritable.output;
    EXPECT_FALSE(fs::exists(dir / "good.d"));

    // Nor can the dependency file.
    ToolRun noDeps =
        Compile(Quote((dir / "good.rc").string()) + " " + Quote((dir / "good.cpp").string()) + " " +
                Quote((dir / "no such dir" / "good.d").string()) + " exe");
    EXPECT_EQ(noDeps.status, 1);
}

} // namespace
