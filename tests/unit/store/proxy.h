// A connection to a server that can be cut, frozen and refused, as networks do.
#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zv::store {

/// Listens on loopback and passes everything on to another port of this machine.
class Proxy {
 public:
    explicit Proxy(int serverPort);
    ~Proxy();
    Proxy(const Proxy&) = delete;
    Proxy& operator=(const Proxy&) = delete;

    int Port() const { return port_; }
    /// Ends the connections there are.
    void Cut();
    /// Passes nothing on in either direction; connections stay, and new ones are taken and left
    /// without an answer.
    void Freeze(bool frozen) { frozen_ = frozen; }
    /// Nobody listens any longer, or again on the same port.
    void Refuse(bool refuse);

 private:
    void Listen();
    void Run();
    void Accept();

    struct Pair {
        int client = -1;
        int server = -1;
    };

    int serverPort_;
    int port_ = 0;
    std::mutex mutex_;  // of the two below
    int listener_ = -1;
    std::vector<Pair> pairs_;
    std::atomic<bool> frozen_{false};
    std::atomic<bool> ended_{false};
    std::thread thread_;
};

}  // namespace zv::store
