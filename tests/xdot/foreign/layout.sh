#!/bin/sh
# Lays the graphs of this folder out anew. The results are test data and kept; only this script
# needs the programs that made them, and python3.
set -e
cd "$(dirname "$0")"
for graph in *.gv; do
    name=${graph%.gv}
    case $name in
    springs | undirected) program=neato ;;
    forces) program=fdp ;;
    circles) program=circo ;;
    *) program=dot ;;
    esac
    $program -Txdot1.2 -o "$name.xdot" "$graph"
done
# Gradients came with a later version of the format.
dot -Txdot1.4 -o gradients_later.xdot gradients.gv
mkdir -p converted
for name in fonts html ranks records undirected; do
    ../converter/from_graphviz "$name.xdot" >"converted/$name.xdot"
done
