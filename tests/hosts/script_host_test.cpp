// quorelscript.exe from outside: what it prints, what it ends with.

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>
#include <vector>

#include "platform/win32/unique.h"

namespace quorel::scripthost::testing {
namespace {

using win32::fromFile;
using win32::KernelHandle;

struct Ended {
    DWORD code = 0;
    std::string output;
    std::string errors;
};

std::wstring temporaryFolder() {
    std::array<wchar_t, MAX_PATH + 1> path{};
    return {path.data(), ::GetTempPathW(static_cast<DWORD>(path.size()), path.data())};
}

std::wstring programPath() {
    std::wstring path(0x1000, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1) + L"quorelscript.exe";
}

KernelHandle openFile(const std::wstring& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return KernelHandle(fromFile(::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                               &inherited, disposition, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

std::string contentOf(const std::wstring& path) {
    const KernelHandle file = openFile(path, GENERIC_READ, OPEN_EXISTING);
    std::string text(0x4000, '\0');
    DWORD read = 0;
    EXPECT_NE(::ReadFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &read, nullptr), FALSE);
    text.resize(read);
    return text;
}

class ScriptHost : public ::testing::Test {
  protected:
    ~ScriptHost() override {
        for (const std::wstring& file : files_)
            ::DeleteFileW(file.c_str());
    }

    std::wstring temporary(const wchar_t* name) {
        files_.push_back(temporaryFolder() + L"quorel_" + name);
        return files_.back();
    }
    std::wstring script(const wchar_t* name, const std::string& bytes) {
        const std::wstring path = temporary(name);
        const KernelHandle file = openFile(path, GENERIC_WRITE, CREATE_ALWAYS);
        DWORD written = 0;
        EXPECT_NE(::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr),
                  FALSE);
        return path;
    }
    Ended run(const std::wstring& arguments) {
        const std::wstring output = temporary(L"output.txt");
        const std::wstring errors = temporary(L"errors.txt");
        Ended ended;
        {
            const KernelHandle outputFile = openFile(output, GENERIC_WRITE, CREATE_ALWAYS);
            const KernelHandle errorFile = openFile(errors, GENERIC_WRITE, CREATE_ALWAYS);
            STARTUPINFOW startup{};
            startup.cb = sizeof startup;
            startup.dwFlags = STARTF_USESTDHANDLES;
            startup.hStdOutput = outputFile.get();
            startup.hStdError = errorFile.get();
            PROCESS_INFORMATION process{};
            std::wstring line = L"quorelscript " + arguments;
            EXPECT_NE(::CreateProcessW(programPath().c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                       nullptr, &startup, &process),
                      FALSE);
            const KernelHandle processHandle(process.hProcess);
            const KernelHandle threadHandle(process.hThread);
            EXPECT_EQ(::WaitForSingleObject(process.hProcess, 30000), WAIT_OBJECT_0);
            ::GetExitCodeProcess(process.hProcess, &ended.code);
        }
        ended.output = contentOf(output);
        ended.errors = contentOf(errors);
        return ended;
    }
    Ended runScript(const wchar_t* name, const std::string& bytes, const std::wstring& arguments = {}) {
        return run(L"\"" + script(name, bytes) + L"\" " + arguments);
    }

  private:
    std::vector<std::wstring> files_;
};

TEST_F(ScriptHost, EndsWithZero) {
    const Ended ended = runScript(L"plain.vbs", "WScript.Echo \"hello\", 1 + 1\n");
    EXPECT_EQ(ended.code, 0U);
    EXPECT_EQ(ended.output, "hello 2\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(ScriptHost, SaysWhereAnErrorHappened) {
    const Ended ended =
        runScript(L"error.vbs", "WScript.Echo \"before\"\nErr.Raise 1234, \"Me\", \"It is so\"\n");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_EQ(ended.output, "before\n");
    EXPECT_NE(ended.errors.find("quorel_error.vbs(2, "), std::string::npos) << ended.errors;
    EXPECT_NE(ended.errors.find(") Me: It is so (1234)\n"), std::string::npos) << ended.errors;
}

TEST_F(ScriptHost, SaysWhereAJScriptErrorHappened) {
    const Ended ended = runScript(L"error.js", "\n\nthrow new Error(0x800A03E9, \"thrown\");\n");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_NE(ended.errors.find("quorel_error.js(3, "), std::string::npos) << ended.errors;
    EXPECT_NE(ended.errors.find("thrown (1001)"), std::string::npos) << ended.errors;
}

TEST_F(ScriptHost, SaysWhatDoesNotCompile) {
    const Ended ended = runScript(L"syntax.vbs", "WScript.Echo \"never\"\nIf Then\n");
    EXPECT_EQ(ended.code, 1U);
    EXPECT_EQ(ended.output, "");
    EXPECT_NE(ended.errors.find("quorel_syntax.vbs"), std::string::npos) << ended.errors;
}

TEST_F(ScriptHost, EndsWithTheScriptsCode) {
    const Ended ended =
        runScript(L"quit.vbs", "On Error Resume Next\nWScript.Quit 7\nWScript.Echo \"never\"\n");
    EXPECT_EQ(ended.code, 7U);
    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(runScript(L"quit.js", "WScript.Quit();").code, 0U);
}

TEST_F(ScriptHost, ErrorsThatWereHandledAreNoErrors) {
    // Echo asks for the text of the object, which its class fails to give.
    const Ended ended = runScript(L"handled.vbs",
                                  "Class Mute\n"
                                  "Public Default Property Get Text\n"
                                  "Err.Raise 2000, \"Mute\", \"no text\"\n"
                                  "End Property\n"
                                  "End Class\n"
                                  "On Error Resume Next\n"
                                  "WScript.Echo New Mute\n"
                                  "If Err.Number = 0 Then WScript.Quit 5\n"
                                  "WScript.Echo Err.Number\n");
    EXPECT_EQ(ended.code, 0U);
    EXPECT_EQ(ended.output, "2000\n");
    EXPECT_EQ(ended.errors, "");
}

TEST_F(ScriptHost, ReadsEveryEncoding) {
    const std::string text = "WScript.Echo \"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\"\n";
    const std::string said = "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\n";
    EXPECT_EQ(runScript(L"utf8.vbs", text).output, said);
    EXPECT_EQ(runScript(L"mark.vbs", "\xEF\xBB\xBF" + text).output, said);
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char16_t unit : std::u16string(u"WScript.Echo \"\u00E4\u20AC\U0001F600\"\n")) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        little += {low, high};
        big += {high, low};
    }
    EXPECT_EQ(runScript(L"little.vbs", little).output, said);
    EXPECT_EQ(runScript(L"big.vbs", big).output, said);
}

TEST_F(ScriptHost, HandsArgumentsOn) {
    const Ended ended = runScript(L"arguments.js",
                                  "for (var i = 0; i < WScript.Arguments.length; ++i)"
                                  " WScript.Echo(i + \"=\" + WScript.Arguments(i));",
                                  L"one \"two words\" \u20AC --manifest");
    EXPECT_EQ(ended.output, "0=one\n1=two words\n2=\xE2\x82\xAC\n3=--manifest\n");
}

TEST_F(ScriptHost, ExplainsItsUse) {
    for (const std::wstring arguments : {L"", L"notes.txt", L"--manifest only.manifest"}) {
        const Ended ended = run(arguments);
        EXPECT_EQ(ended.code, 2U);
        EXPECT_EQ(ended.errors.substr(0, 6), "usage:");
    }
    const Ended missing = run(L"not_there.vbs");
    EXPECT_EQ(missing.code, 2U);
    EXPECT_NE(missing.errors, "");
}

TEST_F(ScriptHost, LetsGoOfComponentsWhileTheScriptCanAnswer) {
    // The dictionary holds a script function that nothing but the end of the script lets go of.
    const Ended ended = runScript(L"end.js",
                                  "var keep = new ActiveXObject(\"Scripting.Dictionary\");\n"
                                  "keep.Add(\"call\", function () { return keep; });\n");
    EXPECT_EQ(ended.code, 0U) << ended.errors;
}

}  // namespace
}  // namespace quorel::scripthost::testing
