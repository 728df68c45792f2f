#pragma once
#include <memory>

#include "com/automation/com_ptr.h"
#include "com/connection_sharing.h"
#include "component/clsCatalogador.h"
#include "platform/rdo.h"

namespace catalogador::com {

/// The connection that the host has handed over: driven by the names of its members or, when it is
/// one of this project's own, used directly.
class HostConnection {
  public:
    HostConnection() = default;
    /// Null for none. Raises RuntimeError (typeMismatch) for what is no connection.
    explicit HostConnection(IDispatch* connection);

    /// For the duration of one call of the component.
    class Use {
      public:
        /// Of a connection that cannot be used, the component hears when it uses it.
        Use(HostConnection& connection, clsCatalogador& component);
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        void attach(const ComPtr<IConnectionSharing>& shared);

        clsCatalogador& component_;
        /// What the call works with stays, also when the host hands over another connection, or
        /// none, while the screen is open.
        std::shared_ptr<rdoConnection> used_;
        ComPtr<IConnectionSharing> attached_;
    };

  private:
    ComPtr<IConnectionSharing> shared_;
    std::shared_ptr<rdoConnection> automation_;
};

}  // namespace catalogador::com
