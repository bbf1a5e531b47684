// What the file dialog does with a typed name: where it points, the default
// extension, and the checks the caller's flags ask for, each refusal told in
// a message box while the dialog stays open.
#include "FileDialog.h"

#include <dlgs.h>

#include <unistd.h>

namespace platform::user::filedialog {

namespace {

std::u16string Trim(const std::u16string& text) {
    std::size_t begin = text.find_first_not_of(u' ');
    if (begin == std::u16string::npos)
        return {};
    std::size_t end = text.find_last_not_of(u' ');
    std::u16string trimmed = text.substr(begin, end - begin + 1);
    // A name in quotes is taken as it is, spaces and all.
    if (trimmed.size() >= 2 && trimmed.front() == u'"' && trimmed.back() == u'"')
        trimmed = trimmed.substr(1, trimmed.size() - 2);
    return trimmed;
}

bool HasExtension(const std::u16string& name) {
    std::size_t dot = name.rfind(u'.');
    return dot != std::u16string::npos && dot > 0;
}

bool IsFolder(const std::filesystem::path& path) {
    std::error_code ec;
    return std::filesystem::is_directory(path, ec);
}

bool Exists(const std::filesystem::path& path) {
    std::error_code ec;
    return std::filesystem::exists(path, ec);
}

// The extension a name without one gets: the chosen filter's own when it
// names one ("*.txt"), else the caller's default; none when the caller gave
// no default.
std::u16string DefaultExtension(const DialogState& state) {
    if (!state.ofn->lpstrDefExt)
        return {};
    std::u16string extension =
        state.typedPatterns.empty() ? FilterExtension(state.filters[state.filter]) : u"";
    if (extension.empty())
        extension = state.ofn->lpstrDefExt;
    std::size_t start = extension.find_first_not_of(u'.');
    return start == std::u16string::npos ? u"" : extension.substr(start);
}

int Tell(HWND hwnd, const DialogState& state, const std::u16string& text, UINT type) {
    return MessageBox(hwnd, text.c_str(), state.title.c_str(), type);
}

std::vector<std::u16string> SplitPatterns(const std::u16string& text) {
    std::vector<std::u16string> patterns;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(u';', start);
        if (end == std::u16string::npos)
            end = text.size();
        std::u16string pattern = Trim(text.substr(start, end - start));
        if (!pattern.empty())
            patterns.push_back(pattern);
        start = end + 1;
    }
    return patterns;
}

} // namespace

std::filesystem::path InitialFolder(const OPENFILENAMEW& ofn) {
    std::error_code ec;
    std::filesystem::path current = std::filesystem::current_path(ec);
    if (ec)
        current = "/";
    std::u16string initial = ofn.lpstrFile ? ofn.lpstrFile : u"";
    std::size_t slash = initial.rfind(u'/');
    if (slash != std::u16string::npos) {
        std::filesystem::path folder =
            current / PathOf(slash == 0 ? u"/" : std::u16string_view(initial).substr(0, slash));
        if (IsFolder(folder))
            return folder;
    }
    if (ofn.lpstrInitialDir && *ofn.lpstrInitialDir) {
        std::filesystem::path folder = current / PathOf(ofn.lpstrInitialDir);
        if (IsFolder(folder))
            return folder;
    }
    return current;
}

bool AcceptTypedName(HWND hwnd, DialogState& state, std::u16string text) {
    text = Trim(text);
    if (text.empty())
        return false;
    // Wild cards list what matches them instead of choosing a file.
    if (text.find_first_of(u"*?") != std::u16string::npos) {
        state.typedPatterns = SplitPatterns(text);
        ShowFolder(hwnd, state, state.folder);
        return false;
    }
    std::filesystem::path path = (state.folder / PathOf(text)).lexically_normal();
    if (IsFolder(path)) {
        ShowFolder(hwnd, state, path);
        SetWindowText(GetDlgItem(hwnd, edt1), u"");
        return false;
    }
    std::u16string name = TextOf(path.filename());
    if (name.empty())
        return false;
    std::u16string extension = DefaultExtension(state);
    if (!HasExtension(name) && !extension.empty())
        path.replace_filename(PathOf(name + u"." + extension));
    std::u16string full = TextOf(path);
    name = TextOf(path.filename());
    DWORD flags = state.ofn->Flags;
    bool fileMustExist = !state.save && (flags & OFN_FILEMUSTEXIST);
    if ((flags & OFN_PATHMUSTEXIST || fileMustExist) && !IsFolder(path.parent_path())) {
        Tell(hwnd, state, full + u"\nPath does not exist.\nCheck the path and try again.",
             MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    bool exists = Exists(path);
    if (!state.save) {
        // Asking to create the file takes the place of refusing it.
        if ((flags & OFN_CREATEPROMPT) && !exists) {
            if (Tell(hwnd, state, name + u"\nThis file does not exist.\nDo you want to create it?",
                     MB_YESNO | MB_ICONQUESTION) != IDYES)
                return false;
        } else if (fileMustExist && !exists) {
            Tell(hwnd, state, full + u"\nFile not found.\nCheck the file name and try again.",
                 MB_OK | MB_ICONEXCLAMATION);
            return false;
        }
    } else {
        if ((flags & OFN_OVERWRITEPROMPT) && exists &&
            MessageBox(hwnd, (name + u" already exists.\nDo you want to replace it?").c_str(),
                       u"Confirm Save As", MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) != IDYES)
            return false;
        if ((flags & OFN_NOREADONLYRETURN) && exists && ::access(path.c_str(), W_OK) != 0) {
            Tell(hwnd, state,
                 name + u"\nThis file is set to read-only.\nTry again with a different file name.",
                 MB_OK | MB_ICONEXCLAMATION);
            return false;
        }
    }
    state.chosen = full;
    return true;
}

} // namespace platform::user::filedialog
