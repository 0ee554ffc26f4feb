## engine: embedded
## setting: PrivateMacros=/m/private
## getparam: the MX project file (the first *.mmd file by name), its
## CurrentDPF (blanks around it dropped), then the engine's parameter groups
## in turn (the settings are the second).
   no project file: mmd |getparam(mmdname)|, dpf |getparam(currentdpf)|
   engine |getparam(engine)|, model |getparam(CurrentModel)|, private |getparam(privatemacros)|, nothing |getparam(nothing)|
copyfile,road.txt,Road.MMD
copyfile,zz.txt,zz.mmd
   mmd |getparam(mmdname)|, dpf |getparam(currentdpf)|
