// SPDX-License-Identifier: MIT
// The program quillon: the window, and the run behind it.
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QTimer>
#include <cstdio>
#include <memory>

#include "app/product.h"
#include "forms/chosen_port.h"
#include "forms/frmMain.h"
#include "forms/japanese.h"
#include "forms/qt_dialogs.h"
#include "forms/simulated_socket.h"
#include "forms/small_form_texts.h"
#include "forms/theme.h"
#include "forms/window_options.h"
#include "platform/deferred_settings.h"
#include "platform/host_ports.h"
#include "platform/ini_settings_store.h"
#include "platform/qt_host.h"
#include "platform/qt_serial_port.h"
#include "platform/quit_signals.h"
#include "platform/single_instance.h"
#include "run/run.h"
#include "run/start_up.h"

namespace {

using namespace quillon;

constexpr int kBadArguments = 2;

void dress(QApplication& application) {
    QApplication::setApplicationName("quillon");
    QApplication::setApplicationVersion(q(product_version()));
    QGuiApplication::setDesktopFileName("quillon");
    QApplication::setWindowIcon(QIcon{":/icons/quillon.png"});
    QApplication::setFont(window_font(QApplication::font()));
    // The main window ends the program when it is closed, and the small windows close with it.
    QApplication::setQuitOnLastWindowClosed(false);
    install_japanese(application);
}

// Closes the window on a signal, where nobody answers questions. A running command is given up, and
// everything that is saved at the end is saved. An open question is closed first. Another one may
// open before the command has ended, so this repeats until the program ends.
class Quitting {
  public:
    explicit Quitting(frmMain& window) : window_{window} {
        QObject::connect(&again_, &QTimer::timeout, &again_, [this] { step(); });
    }
    void begin() {
        again_.start(kAgain);
        step();
    }

  private:
    static constexpr int kAgain = 50;  // milliseconds

    void step() {
        if (auto* question = QApplication::activeModalWidget()) question->close();
        window_.quit();
    }

    frmMain& window_;
    QTimer again_;
};

// The port behind the numbers: a port of the machine or the simulated board.
struct Ports {
    Ports(const WindowOptions& options, SettingsStore& store, const Host& host)
        : host_ports{store} {
        if (options.port == "sim") {
            simulated = std::make_unique<SimulatedSocket>(host);
            number = SimulatedSocket::kNumber;
            return;
        }
        real = std::make_unique<QtSerialPort>([this](int n) { return host_ports.path(n); });
        host_ports.refresh();
        if (options.port) number = host_ports.assign(*options.port);
    }
    SerialPort& port() { return simulated ? simulated->port() : *real; }
    QString describe(int n) {
        if (simulated) return n == SimulatedSocket::kNumber ? q(form_text::kSimulated) : QString{};
        if (n == 1) host_ports.refresh();  // the dialog asks for all numbers in turn
        return q(host_ports.describe(n));
    }

    HostPorts host_ports;
    std::unique_ptr<SimulatedSocket> simulated;
    std::unique_ptr<QtSerialPort> real;
    int number = 0;
};

int run_window(const WindowOptions& options, const std::string& tail) {
    QtHost::Folders folders;
    if (options.home) folders.home = *options.home;
    QtHost host{QtHost::Interface::Window, folders};
    IniSettingsStore file{folders.home};
    DeferredSettings saved{file};
    Ports ports{options, saved, host};
    ChosenPort store{saved, ports.number};
    QtDialogs dialogs;
    const auto run = std::make_unique<Run>(store, host, ports.port(), dialogs);
    if (options.catalogue) run->session.CatalogueFile = *options.catalogue;
    if (ports.simulated) ports.simulated->follow(*run);

    const SingleInstance instance{host.documents_folder()};
    StartUp start_up{*run};
    frmMain window{*run,
                   {.give_up = [&host] { host.give_up(Abandoned::Reason::Closed); },
                    .frame =
                        [&host](const std::function<void()>& act) {
                            const QtHost::Operation operation{host};
                            act();
                        },
                    .leave =
                        [&start_up](bool minimized) {
                            start_up.shutdown(minimized);
                            QCoreApplication::exit(0);
                        }}};
    Quitting quitting{window};
    const QuitSignals signals_to_quit{[&quitting] { quitting.begin(); }};
    dialogs.attach(*run, &window, [&ports](int n) { return ports.describe(n); });

    StartUp::End end{};
    window.load([&] { end = start_up.Main(tail, instance.second()); });
    if (end == StartUp::End::EndProcess) {
        start_up.shutdown(window.isMinimized());
        return 0;
    }
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments{argv + 1, argv + argc};
    const WindowOptions options = read_window_options(arguments);
    if (options.bad) {
        std::fprintf(stderr, "quillon: %s\n%s", options.bad->c_str(), window_usage().c_str());
        return kBadArguments;
    }
    if (options.help) {
        std::fputs(window_usage().c_str(), stdout);
        return 0;
    }
    if (options.version) {
        std::printf("Quillon %s\n", std::string{product_version()}.c_str());
        return 0;
    }
    // Qt removes its own options from the remaining arguments. What is left is the tail.
    std::vector<std::string> rest{argv[0]};
    rest.insert(rest.end(), options.rest.begin(), options.rest.end());
    std::vector<char*> pointers;
    for (auto& argument : rest) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    int count = static_cast<int>(rest.size());
    QApplication application{count, pointers.data()};
    dress(application);
    std::vector<std::string> tail;
    for (int i = 1; i < count; ++i) tail.emplace_back(pointers[static_cast<std::size_t>(i)]);
    return run_window(options, command_tail(tail));
}
