// Run by Windows Installer, so that no text that an office edited is lost. A text counts as
// edited when it is not the one in the folder "original" beside it, or has none there.
var files = new ActiveXObject("Scripting.FileSystemObject");
var SUCCESS = 1, FAILURE = 3, READ_ONLY = 1, MAY_BE_SET = 39; // the attributes that a script may set

function contents(path) {
    return files.GetFile(path).Size ? files.OpenTextFile(path).ReadAll() : "";
}

function same(path, other) {
    return files.FileExists(other) && contents(path) == contents(other);
}

// Over what is write-protected, too; the copy is not.
function copy(path, target) {
    allowWriting(target);
    files.CopyFile(path, target, true);
    allowWriting(target);
}

function allowWriting(path) {
    if (files.FileExists(path)) {
        var file = files.GetFile(path);
        if (file.Attributes & READ_ONLY)
            file.Attributes = file.Attributes & MAY_BE_SET & ~READ_ONLY;
    }
}

// The data of the action: the folder, and the names of what ships in it. What fails with one
// text costs the others nothing, and stands in the log.
function forEachText(act) {
    var names = Session.Property("CustomActionData").split("|"), folder = names.shift(), result = SUCCESS;
    for (var i = 0; i < names.length; ++i) {
        try {
            act(folder + names[i], folder + "original\\" + names[i], folder + names[i] + ".edited");
        } catch (failure) {
            result = FAILURE;
        }
    }
    return result;
}

// Before files are removed or replaced: edited texts are copied aside. What lies there already
// was never put back: it stays, under another name where the text has been edited again.
function keepTexts() {
    return forEachText(function (text, original, kept) {
        if (!files.FileExists(text) || same(text, original))
            return;
        if (files.FileExists(kept) && !same(text, kept)) {
            for (var number = 1; files.FileExists(kept + number);)
                ++number;
            files.MoveFile(kept, kept + number);
        }
        copy(text, kept);
    });
}

// After files were installed: what was copied aside, now or by a removal earlier, takes their place.
function putTextsBack() {
    return forEachText(function (text, original, kept) {
        if (files.FileExists(kept)) {
            copy(kept, text);
            files.DeleteFile(kept, true);
        }
    });
}
