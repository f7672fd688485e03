#include "proxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace zv::store {
namespace {

sockaddr_in Loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// False when the connection has ended.
bool Pass(int from, int to) {
    char buffer[16 * 1024];
    const ssize_t size = recv(from, buffer, sizeof buffer, 0);
    if (size <= 0) return false;
    for (ssize_t sent = 0; sent < size;) {
        const ssize_t part =
            send(to, buffer + sent, static_cast<std::size_t>(size - sent), MSG_NOSIGNAL);
        if (part <= 0) return false;
        sent += part;
    }
    return true;
}

}  // namespace

Proxy::Proxy(int serverPort) : serverPort_(serverPort) {
    Listen();
    thread_ = std::thread([this] { Run(); });
}

Proxy::~Proxy() {
    ended_ = true;
    thread_.join();
    Cut();
    Refuse(true);
}

void Proxy::Listen() {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    const int yes = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    sockaddr_in address = Loopback(port_);
    socklen_t size = sizeof address;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 16) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("the proxy cannot listen");
    }
    port_ = ntohs(address.sin_port);
}

void Proxy::Cut() {
    const std::lock_guard lock(mutex_);
    for (const Pair& pair : pairs_) {
        close(pair.client);
        close(pair.server);
    }
    pairs_.clear();
}

void Proxy::Refuse(bool refuse) {
    const std::lock_guard lock(mutex_);
    if (refuse && listener_ >= 0) {
        close(listener_);
        listener_ = -1;
    } else if (!refuse && listener_ < 0) {
        Listen();
    }
}

void Proxy::Accept() {
    const int client = accept(listener_, nullptr, nullptr);
    if (client < 0) return;
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(serverPort_);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        close(client);
        close(server);
        return;
    }
    pairs_.push_back({client, server});
}

void Proxy::Run() {
    constexpr int kTick = 5;  // milliseconds
    while (!ended_) {
        if (frozen_) {
            poll(nullptr, 0, kTick);
            continue;
        }
        const std::lock_guard lock(mutex_);
        std::vector<pollfd> watched;
        watched.push_back({listener_, POLLIN, 0});
        for (const Pair& pair : pairs_) {
            watched.push_back({pair.client, POLLIN, 0});
            watched.push_back({pair.server, POLLIN, 0});
        }
        if (poll(watched.data(), watched.size(), kTick) <= 0) continue;
        for (std::size_t i = pairs_.size(); i-- > 0;) {
            const Pair pair = pairs_[i];
            const bool whole = (!(watched[2 * i + 1].revents) || Pass(pair.client, pair.server)) &&
                               (!(watched[2 * i + 2].revents) || Pass(pair.server, pair.client));
            if (whole) continue;
            close(pair.client);
            close(pair.server);
            pairs_.erase(pairs_.begin() + static_cast<std::ptrdiff_t>(i));
        }
        if (watched.front().revents & POLLIN) Accept();
    }
}

}  // namespace zv::store
