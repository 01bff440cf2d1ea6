// All clients: takes them in, hands their lines to their sessions and their replies back, and forgets those
// that have gone.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Sockets.h"
#include "remote/ClientScreen.h"
#include "remote/Commands.h"
#include "remote/Hands.h"
#include "remote/Session.h"

namespace tessarine::remote {

class Server final : public EventSource {
 public:
  static constexpr std::size_t kMostClients = 64;  // more wait until one of them leaves

  // What clients do shows on `screen`, which the program was made with.
  Server(Instrument instrument, ClientScreen& screen, std::unique_ptr<Listener> listener);
  ~Server() override;
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  [[nodiscard]] std::vector<Interest> interests() const override;
  [[nodiscard]] bool hasWork() const override;
  void serve() override;

  // "Remote control on 127.0.0.1:5025: 2 clients connected, last asked FREQ:ACT?"
  [[nodiscard]] std::string describe() const;

 private:
  struct Client {
    Client(std::unique_ptr<Connection> with, const Hands& hands, Session::Perform perform)
        : connection(std::move(with)), session(hands, std::move(perform)) {}
    std::unique_ptr<Connection> connection;  // null: gone
    bool saysNoMore = false;
    Session session;
  };

  void exchange();
  void acceptAll();
  static void receive(Client& client);
  static void send(Client& client);
  void carryOut(Client& client);
  void forgetTheGone();

  Instrument instrument_;
  ClientScreen& screen_;
  Hands hands_;
  std::unique_ptr<Listener> listener_;
  std::vector<std::shared_ptr<Client>> clients_;  // shared with rounds that wait
  std::string last_;
};

}  // namespace tessarine::remote
