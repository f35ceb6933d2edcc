// Run by Windows Installer, so that no text that an office edited is lost. A text counts as
// edited when it is not the one in the folder "original" beside it.
var files = new ActiveXObject("Scripting.FileSystemObject");

function contents(path) {
    return files.GetFile(path).Size ? files.OpenTextFile(path).ReadAll() : "";
}

// The data of the action: the folder, and the names of what ships in it.
function forEachText(act) {
    var names = Session.Property("CustomActionData").split("|"), folder = names.shift();
    for (var i = 0; i < names.length; ++i)
        act(folder + names[i], folder + "original\\" + names[i], folder + names[i] + ".edited");
}

// Before files are removed or replaced: edited texts are copied aside.
function keepTexts() {
    forEachText(function (text, original, kept) {
        if (!files.FileExists(text) || !files.FileExists(original))
            return;
        if (contents(text) != contents(original))
            files.CopyFile(text, kept, true);
        else if (files.FileExists(kept))
            files.DeleteFile(kept, true);
    });
    return 1;
}

// After files were installed: what was copied aside, now or by a removal earlier, takes their place.
function putTextsBack() {
    forEachText(function (text, original, kept) {
        if (files.FileExists(kept)) {
            files.CopyFile(kept, text, true);
            files.DeleteFile(kept, true);
        }
    });
    return 1;
}
