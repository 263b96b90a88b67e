#include "browser/Address.h"
#include "browser/RequestGate.h"
#include "support/Require.h"
#include "support/Scratch.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QUrl>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

using namespace Tesk;
using Fuzzing::Require;

namespace {

/// What stands in an input for the application directory, percent-encoded as in an address.
const QByteArray RootMark = "ROOT";

/// An application directory in which links lead out and in, beside folders that are none of it.
class Installation
{
public:
    Installation()
    {
        const QString scratch = Fuzzing::ScratchFolder();
        for (const char *folder : {"/app/content", "/app/PDF", "/app2", "/other"})
            Require(QDir().mkpath(scratch + QLatin1String(folder)), "a folder can be made");
        for (const char *file : {"/app/content/a.html", "/app/content/own.txt", "/app/PDF/a b.pdf",
                                 "/app2/a.html", "/other/secret.txt", "/secret.txt"})
            Fuzzing::WriteFile(scratch + QLatin1String(file), "x");
        root = scratch.toStdString() + "/app";
        for (const char *link : {"link.txt", "\xFF", "50%41", "Ger\xC3\xA4t", "Ger\xC3\xA4t 50%"})
            Link("../../other/secret.txt", link);
        Link("../../other", "out");
        Link("../../app2", "beside");
        Link("../PDF", "in");
        Link("own.txt", "own-link.txt");
    }

    const std::string &Root() const { return root; }

private:
    void Link(const char *target, const char *name) const
    {
        std::filesystem::create_symlink(target, root + "/content/" + name);
    }

    std::string root;
};

const Installation &Catalogue()
{
    static const Installation installation;
    return installation;
}

/// The file that whoever opens this name gets; empty without one.
std::string FileOf(const std::string &name)
{
    const std::unique_ptr<char, void (*)(void *)> file(realpath(name.c_str(), nullptr), std::free);
    return file ? file.get() : "";
}

/// The path of a file's address, its bytes as the engine gives them to the disk: a percent sign
/// before anything but two digits is one, and a name ends at its first zero.
std::string PathOf(const QByteArray &address)
{
    const std::string text = address.mid(7).toStdString();
    const std::string encoded = text.substr(0, text.find_first_of("?#"));
    std::string path;
    for (std::size_t at = 0; at < encoded.size(); ++at) {
        const std::string digits = encoded.substr(at + 1, 2);
        const bool isEncoded = encoded[at] == '%' && digits.size() == 2 &&
                               digits.find_first_not_of("0123456789ABCDEFabcdef") == digits.npos;
        path += isEncoded ? static_cast<char>(std::stoi(digits, nullptr, 16)) : encoded[at];
        at += isEncoded ? 2 : 0;
    }
    return path.c_str();
}

/// `address` is one that the gate lets through.
void CheckFile(const QByteArray &address)
{
    const std::string path = PathOf(address);
    const std::string steps = std::filesystem::path(path).lexically_normal().string();
    for (const std::string &name : {path, steps}) {
        const std::string file = FileOf(name);
        Require(file.empty() || file.starts_with(FileOf(Catalogue().Root()) + "/"),
                "a file that is read lies in the application directory");
    }
}

void Check(const RequestGate &gate, const QUrl &url)
{
    if (!gate.Allows(url))
        return;
    Require(RequestGate::IsLocal(url), "what may be loaded may be navigated to");
    const QByteArray address = url.toEncoded();
    if (address.startsWith("file:")) {
        Require(address.startsWith("file:///"), "a file is none of another machine");
        CheckFile(address);
        return;
    }
    bool isKnown = false;
    for (const char *beginning :
         {"mk:", "data:", "blob:", "about:", "chrome-extension://mhjfbmdgcfjbbpaeojofohoefgiehjai",
          "chrome://resources"})
        isKnown = isKnown || address.startsWith(beginning);
    Require(isKnown, "what is no file stays within the program");
}

} // namespace

/// Takes the input for an address that the engine asks for: whole, and as one that a page of the
/// catalogue refers to.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString root = QString::fromStdString(Catalogue().Root());
    static const RequestGate gate(root);
    QByteArray address(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    address.replace(RootMark, QUrl::fromLocalFile(root).path(QUrl::FullyEncoded).toLatin1());

    const QUrl whole = QUrl::fromEncoded(address);
    Check(gate, whole);
    Check(gate, QUrl::fromLocalFile(root + QStringLiteral("/content/a.html")).resolved(whole));
    Check(gate, Address::ToUrl(QString::fromUtf8(address)));
    // The engine's own spelling, which a parser may take for another.
    if (address.startsWith("file:///") && whole.isLocalFile() && gate.Allows(whole))
        CheckFile(address);
    return 0;
}
