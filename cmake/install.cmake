# installation
