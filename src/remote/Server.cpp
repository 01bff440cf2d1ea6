#include "remote/Server.h"

#include <algorithm>
#include <utility>

namespace tessarine::remote {
namespace {

// Of one client in one round, so that neither another one nor the program waits for a flood.
constexpr int kMostCommands = 32;

}  // namespace

Server::Server(Instrument instrument, ClientScreen& screen, std::unique_ptr<Listener> listener)
    : instrument_(std::move(instrument)),
      screen_(screen),
      hands_(instrument_.program.forms, instrument_.program.door,
             {&instrument_.program.window.StartHop, &instrument_.program.window.StartSweepCommand(0)}),
      listener_(std::move(listener)) {
  screen_.follow(&hands_);
}

Server::~Server() { screen_.follow(nullptr); }

std::vector<Interest> Server::interests() const {
  std::vector<Interest> wanted;
  if (clients_.size() < kMostClients) wanted.push_back({listener_->descriptor(), true, false});
  for (const auto& client : clients_) {
    if (!client->connection) continue;
    const bool reads = !client->saysNoMore && client->session.takesMore();
    const bool writes = !client->session.output.empty();
    if (reads || writes) wanted.push_back({client->connection->descriptor(), reads, writes});
  }
  return wanted;
}

bool Server::hasWork() const {
  return !screen_.hasEnded() &&
         std::ranges::any_of(clients_, [](const auto& client) { return client->session.canRun(); });
}

void Server::serve() {
  if (screen_.hasEnded()) return;
  exchange();
  forgetTheGone();
  // The first command may wait for long: the others' turn comes within its wait.
  const auto ready =
      std::ranges::count_if(clients_, [](const auto& client) { return client->session.canRun(); });
  if (ready > 1 && woken) woken();
  // A copy: while a command of one of them waits, others come and go.
  const auto round = clients_;
  for (const auto& client : round) {
    carryOut(*client);
    if (screen_.hasEnded()) return;
  }
  forgetTheGone();
  if (woken && hasWork()) woken();
}

void Server::exchange() {
  acceptAll();
  for (const auto& client : clients_) {
    receive(*client);
    send(*client);
  }
}

void Server::acceptAll() {
  while (clients_.size() < kMostClients) {
    auto connection = listener_->accept();
    if (!connection) return;
    auto client = std::make_shared<Client>(std::move(connection), hands_,
                                           [this](Session& session, const Command& command) {
                                             last_ = session.lastCommand();
                                             perform(instrument_, hands_, session, command);
                                           });
    client->session.onRelease = [this] {
      if (woken) woken();
    };
    clients_.push_back(std::move(client));
  }
}

void Server::receive(Client& client) {
  if (!client.connection || client.saysNoMore || !client.session.takesMore()) return;
  std::string bytes;
  const Flow flow = client.connection->receive(bytes);
  client.session.receive(bytes);
  if (flow == Flow::ended) client.saysNoMore = true;
  if (flow == Flow::broken || client.session.isBrowser()) client.connection = nullptr;
}

void Server::send(Client& client) {
  if (!client.connection || client.session.output.empty()) return;
  if (client.connection->send(client.session.output) == Flow::broken) client.connection = nullptr;
}

void Server::carryOut(Client& client) {
  for (int i = 0; i < kMostCommands && client.connection && client.session.canRun(); ++i) {
    client.session.runNext();
    if (screen_.hasEnded()) break;
  }
  send(client);
  // Told at once: the next client's command may wait for long.
  if (!client.connection || !client.session.output.empty()) forgetTheGone();
}

void Server::forgetTheGone() {
  for (const auto& client : clients_) {
    if (client->saysNoMore && client->session.isIdle() && client->session.output.empty()) {
      client->connection = nullptr;
    }
  }
  std::erase_if(clients_, [](const auto& client) { return !client->connection; });
  if (changed) changed();
}

std::string Server::describe() const {
  const std::size_t count = clients_.size();
  std::string text = "Remote control on " + listener_->address() + ": ";
  text += count == 0 ? "no" : std::to_string(count);
  text += count == 1 ? " client connected" : " clients connected";
  if (!last_.empty()) text += ", last asked " + shown(last_);
  return text;
}

}  // namespace tessarine::remote
